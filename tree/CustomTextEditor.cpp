#include "tree/CustomTextEditor.h"

#include "tree/NameText.h"

CustomTextEditor::CustomTextEditor(ClickFocus& sharedClickFocus) : clickFocus(sharedClickFocus) {}

CustomTextEditor::~CustomTextEditor() = default;

void CustomTextEditor::returnPressed()
{
    setVisible(false);
    onRename(BytesFromText(getText()));
    onRename = nullptr;
}

void CustomTextEditor::escapePressed()
{
    setVisible(false);
    onRename = nullptr;
}

bool CustomTextEditor::keyStateChanged(bool) { return false; }

void CustomTextEditor::focusGained(FocusChangeType cause)
{
    juce::TextEditor::focusGained(cause);
    clickFocus.gained(*this, cause);
}

void CustomTextEditor::focusLost(FocusChangeType cause)
{
    juce::TextEditor::focusLost(cause);
    clickFocus.lost(*this);
}
