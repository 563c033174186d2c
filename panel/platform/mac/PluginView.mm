#import "panel/platform/mac/PluginView.h"

@implementation PluginView

/// Claims every key equivalent and sends it up the responder chain as an ordinary key.
- (BOOL)performKeyEquivalent:(NSEvent*)event
{
    [super keyDown:event];
    return YES;
}

@end
