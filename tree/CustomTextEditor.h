#pragma once
// The small editor that floats over a row while its object is renamed. Losing the focus does not end the
// rename: only Return and Escape do.

#include "tree/Keyboard.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <string>

class CustomTextEditor : public juce::TextEditor
{
public:
    explicit CustomTextEditor(ClickFocus&);
    ~CustomTextEditor() override;

    /// Hides the editor and hands its text to `onRename`, whatever the text is.
    void returnPressed() override;

    /// Hides the editor and forgets the rename.
    void escapePressed() override;

    /// The base class would report every key that arrives here as used.
    bool keyStateChanged(bool isKeyDown) override;

    void focusGained(FocusChangeType) override;
    void focusLost(FocusChangeType) override;

    /// Takes the new name. Empty while no rename runs.
    std::function<void(std::string)> onRename;

private:
    ClickFocus& clickFocus;
};
