#include "tree/platform/Platform.h"

#include <dispatch/dispatch.h>

void PrepareForJuce() {}

void EmbedView(PanelBase& panel, void* view) { panel.setView(view); }

bool IsKeyboardElsewhere() { return !juce::Process::isForegroundProcess(); }

void CallFromHostLoop(void (*function)())
{
    dispatch_async_f(dispatch_get_main_queue(), reinterpret_cast<void*>(function),
                     [](void* context) { reinterpret_cast<void (*)()>(context)(); });
}
