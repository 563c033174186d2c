// Draws the reference pictures of the panel: tree-pictures FOLDER
//
// Each is what stands on the screen of a private X server where a host's window holds the panel.

#include "standin/user/eyes/Png.h"
#include "tests/tree/support/TreeGuiTest.h"

#include <cstdlib>
#include <iostream>

namespace
{
using namespace standin;
using namespace standin::user;

class Pictures : public TreeGuiTest
{
public:
    Pictures()
    {
        AddObject(panel, VN_OBJECT_GEOMETRY, 1, "Sheets");
        AddObject(panel, VN_OBJECT_GEOMETRY, 2, "Routes");
        AddObject(panel, VN_OBJECT_GEOMETRY, 3, "Solids");
        AddObject(panel, VN_OBJECT_GEOMETRY, 4, "Copies");
    }

    void TestBody() override {}

    void emptyPanel(const juce::File& file)
    {
        show({});
        write(file);
    }

    void tree(const juce::File& file)
    {
        showExample();
        Click(textOf("Vortan Jitter Effector"));
        Click(textOf("My own sheets"), {"Control"});
        write(file);
    }

    void renameEditor(const juce::File& file)
    {
        showExample();
        Click(textOf("Vortan Jitter Effector"));
        (void)pumpUntil([this] { return view().hasKeyboardFocus(false); });
        PressKey("Return");
        (void)pumpUntil([this] { return view().renameEditor->hasKeyboardFocus(false); });
        write(file);
        PressKey("Escape");
        (void)pumpUntil([this] { return !view().renameEditor->isVisible(); });
    }

    void notification(const juce::File& file)
    {
        showExample();
        NotifyMsg(panel, "Max no. of Groups reached");
        write(file);
        panel->notifyLabel.timerCallback();
    }

    void openMenu(const juce::File& file)
    {
        showExample();
        Click(centreOf(panel->geometryButton));
        (void)pumpUntil([] { return juce::Component::getNumCurrentlyModalComponents() > 0; });
        Point(centreOf(panel->geometryButton) + Place{20, 45});
        write(file);
        PressKey("Escape");
        (void)pumpUntil([] { return juce::Component::getNumCurrentlyModalComponents() == 0; });
    }

private:
    void showExample()
    {
        show({object(1, "My own sheets", 1, 1), object(2, "Vortan Jitter Effector", 1, 0),
              external("Gaussian Blur"), object(3, "Vortan Placement", 2, 1),
              object(4, "Vortan Tint Table", 2, 1), object(5, "Vortan", -1, 1),
              object(6, "Vortan Dots Renderer", 0, 1), object(7, "Vortan Rays Renderer 2", 0, 0)});
    }

    /// The host's window as it stands on the screen.
    void write(const juce::File& file)
    {
        // Repaints come with a timer.
        pumpFor(400);
        WritePng(hands.picture({hostX, hostY, hostWidth, hostHeight}), file.getFullPathName().toStdString());
    }
};
} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::cerr << "usage: tree-pictures FOLDER\n";
        return 2;
    }
    testing::InitGoogleTest();
    const auto folder =
        juce::File::getCurrentWorkingDirectory().getChildFile(juce::String::fromUTF8(argv[1]));
    (void)folder.createDirectory();
    Pictures pictures;
    pictures.emptyPanel(folder.getChildFile("panel-empty.png"));
    pictures.tree(folder.getChildFile("panel-tree.png"));
    pictures.renameEditor(folder.getChildFile("panel-rename.png"));
    pictures.notification(folder.getChildFile("panel-notification.png"));
    pictures.openMenu(folder.getChildFile("panel-menu.png"));
    return testing::UnitTest::GetInstance()->Passed() ? 0 : 1;
}
