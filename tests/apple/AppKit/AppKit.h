#pragma once
// What this project uses of AppKit and Foundation, a line for each, as their documentation declares it.

#include <stddef.h>
#include <stdint.h>

#if defined(__arm64__)
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef unsigned short unichar;
typedef double CGFloat;
typedef double NSTimeInterval;

struct CGPoint
{
    CGFloat x;
    CGFloat y;
};
struct CGSize
{
    CGFloat width;
    CGFloat height;
};
struct CGRect
{
    CGPoint origin;
    CGSize size;
};
typedef CGPoint NSPoint;
typedef CGSize NSSize;
typedef CGRect NSRect;
extern "C" const NSRect NSZeroRect;

#define VORTAN_DESIGNATED __attribute__((objc_designated_initializer))
#define VORTAN_DEPRECATED(version)                                                                           \
    __attribute__((availability(macos, introduced = 10.0, deprecated = version)))

#pragma clang assume_nonnull begin

@class NSEvent;
@class NSString;
@class NSWindow;

__attribute__((objc_root_class))
@interface NSObject
+ (instancetype)alloc;
- (instancetype)init VORTAN_DESIGNATED;
- (BOOL)isEqual:(nullable id)object;
- (instancetype)retain;
- (oneway void)release;
- (instancetype)autorelease;
@end

@interface NSString : NSObject
@property(readonly) NSUInteger length;
- (unichar)characterAtIndex:(NSUInteger)index;
@end

struct NSFastEnumerationState
{
    unsigned long state;
    id __unsafe_unretained _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
};

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)length;
@end

@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration>
@property(readonly) NSUInteger count;
@end

typedef NSUInteger NSEventType;
typedef unsigned long long NSEventMask;
typedef NSUInteger NSEventModifierFlags;
enum : unichar
{
    NSDeleteFunctionKey = 0xF728
};

@interface NSEvent : NSObject
@property(readonly) NSEventType type;
@property(readonly) NSEventModifierFlags modifierFlags;
@property(readonly) NSTimeInterval timestamp;
@property(nullable, readonly, copy) NSString* characters;
@property(nullable, readonly, copy) NSString* charactersIgnoringModifiers;
@property(readonly) unsigned short keyCode;
@property(class, readonly) NSPoint mouseLocation;
+ (nullable id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                            handler:(NSEvent* _Nullable (^)(NSEvent* event))block;
+ (void)removeMonitor:(id)eventMonitor;
@end

@interface NSResponder : NSObject
@property(readonly) BOOL acceptsFirstResponder;
- (BOOL)becomeFirstResponder;
- (BOOL)resignFirstResponder;
- (void)mouseDown:(NSEvent*)event;
- (void)keyDown:(NSEvent*)event;
- (BOOL)performKeyEquivalent:(NSEvent*)event;
@end

@interface NSWindow : NSResponder
@property(readonly, getter=isKeyWindow) BOOL keyWindow;
- (NSPoint)convertScreenToBase:(NSPoint)point VORTAN_DEPRECATED(10.7);
@end

typedef NSUInteger NSAutoresizingMaskOptions;
enum : NSAutoresizingMaskOptions
{
    NSViewWidthSizable = 2,
    NSViewHeightSizable = 16
};

@interface NSView : NSResponder
@property(nullable, readonly, assign) NSWindow* window;
@property(nullable, readonly, assign) NSView* superview;
@property(copy) NSArray<__kindof NSView*>* subviews;
@property NSRect frame;
@property NSRect bounds;
@property(getter=isHidden) BOOL hidden;
@property NSAutoresizingMaskOptions autoresizingMask;
- (instancetype)initWithFrame:(NSRect)frame VORTAN_DESIGNATED;
- (void)viewWillMoveToWindow:(nullable NSWindow*)newWindow;
- (nullable NSView*)hitTest:(NSPoint)point;
- (NSPoint)convertPoint:(NSPoint)point fromView:(nullable NSView*)view;
@end

#pragma clang assume_nonnull end
