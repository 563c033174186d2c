// Tells the story of one layer: what the user does in the host comes into the panel, and what the user does
// in the panel goes to the layer. Exits with 0 only if nothing was found that should not be.

#include "tests/story/Story.h"

#include <cstdio>

namespace
{
void tellWhatTheHostDoes(standin::Story& story)
{
    auto& host = story.product.host;
    story.Tell("The panel opens on a layer with an outside effect.", [] {});
    std::string sheets;
    std::string dots;
    const auto apply = [&](const char* matchName)
    { return host.State().FindEffect(host.User().Apply(story.product.layerId, matchName))->label; };
    story.Tell("The user applies three objects of the family in the host.",
               [&]
               {
                   sheets = apply("QVK VORTSRC Lamps");
                   (void)apply("QVK VORTEFF Jitter");
                   dots = apply("QVK VORTREN Dots");
               });
    story.Tell("The host renames the sheets to \"Lamp shades\".",
               [&] { host.User().Rename(sheets, "Lamp shades"); });
    story.Tell("The host moves them to the end of the stack.", [&] { host.User().Reorder(sheets, 3); });
    story.Tell("The host deletes the dots.", [&] { host.User().Delete(dots); });
    story.Tell("The host undoes the deletion.", [&] { (void)host.Undo(); });
}

void tellWhatThePanelDoes(standin::Story& story)
{
    story.Tell("In the panel, the user renames the jitter to \"Nervous\".",
               [&] { story.TreeItem("Jitter").name = "Nervous"; });
    story.Tell("The user drags \"Nervous\" into group 2.", [&] { story.TreeItem("Nervous").group = 2; });
    story.Tell("The user switches the dots off.", [&] { story.TreeItem("Dots").active = 0; });
    story.Tell("The user drags \"Lamp shades\" to the top.", [&] { story.MoveTreeItem("Lamp shades", 0); });
    story.Tell("The user adds strokes from the renderers' menu.",
               [&] { story.AddFromMenu("QVK VORTREN Strokes"); });
    story.Tell("The user deletes the dots.", [&] { story.DeleteTreeItem("Dots"); });
    story.Tell("The user selects \"Nervous\": the host shows it and hides the others.",
               [&] { story.SelectTreeItems({"Nervous"}); });
    story.Tell("The host undoes the deletion of the dots.", [&] { (void)story.product.host.Undo(); });
}
} // namespace

int main()
{
    standin::Story story;
    tellWhatTheHostDoes(story);
    tellWhatThePanelDoes(story);
    const bool isWell = story.End();
    std::printf("\n%s\n", isWell ? "The story ended well." : "The story met what it should not.");
    return isWell ? 0 : 1;
}
