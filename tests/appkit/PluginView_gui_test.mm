#import "panel/platform/mac/PluginView.h"

#import "tests/appkit/HostScene.h"

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

    testing::internal::CaptureStdout();
    const BOOL claimed = [view performKeyEquivalent:key];

    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(claimed, YES);
    EXPECT_EQ(scene.juceView->keys, std::vector<NSEvent*>{key});
    [view removeFromSuperview];
    [view release];
}
} // namespace
} // namespace standin
