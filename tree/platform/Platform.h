#pragma once
// What differs between the platforms in the tree: what the panel component is built on, and the functions
// that each platform's folder defines in its own way.

#include <juce_gui_basics/juce_gui_basics.h>

#if JUCE_MAC
#include <juce_gui_extra/juce_gui_extra.h>
/// macOS hosts a component in a native view.
using PanelBase = juce::NSViewComponent;
#else
/// The component's own window goes straight into the host's container.
using PanelBase = juce::Component;
#endif

/// Called before JUCE starts.
void PrepareForJuce();

/// Gives the panel the view that carries it, on a platform that has such views.
void EmbedView(PanelBase& panel, void* view);

/// True while the keyboard is with a window that is none of ours: the user has turned away, and whoever
/// took the focus now would take it from him.
bool IsKeyboardElsewhere();

/// Calls the function later, from the host's own loop: by then every call into JUCE that runs now has come
/// back. If the host's loop ends before, the function is not called.
void CallFromHostLoop(void (*function)());
