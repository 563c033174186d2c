#import "panel/platform/mac/PluginView.h"

#import "tests/appkit/HostScene.h"
#include "tests/support/OutputOf.h"

#include <gtest/gtest.h>

namespace standin
{
namespace
{
TEST(PluginView, SendsKeyEquivalentsUpTheResponderChain)
{
    const HostScene scene;
    PluginView* const view = [[PluginView alloc] initWithFrame:[scene.container bounds]];
    [scene.juceView addSubview:view];
    NSEvent* const key = MakeKeyPress(scene, {@"z", @"z", 6, NSCommandKeyMask});

    EXPECT_EQ(OutputOf([&] { EXPECT_EQ([view performKeyEquivalent:key], YES); }), "");
    EXPECT_EQ(scene.juceView->keys, std::vector<NSEvent*>{key});
    [view removeFromSuperview];
    [view release];
}
} // namespace
} // namespace standin
