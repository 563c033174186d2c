#pragma once
// A text field of the desktop that keeps the keyboard it was given.
//
// A window that gets the keyboard hands it to whoever in it had it last, and JUCE does so a little later than
// it has given it to a field that was clicked or opened meanwhile. The window's main view is told of the
// field, and passes on what it gets that way.

#include <juce_gui_basics/juce_gui_basics.h>

namespace standin::desktop
{
class Field : public juce::TextEditor
{
public:
    class Owner
    {
    public:
        virtual ~Owner() = default;
        /// Null when the user leaves it.
        virtual void NoteField(Field*) = 0;
    };

    void focusGained(FocusChangeType cause) override
    {
        juce::TextEditor::focusGained(cause);
        note(this);
    }

    /// Gives the keyboard back to the window.
    void Leave()
    {
        note(nullptr);
        getTopLevelComponent()->grabKeyboardFocus();
    }

private:
    void note(Field* field)
    {
        if (auto* owner = findParentComponentOfClass<Owner>())
            owner->NoteField(field);
    }
};
} // namespace standin::desktop
