#include "tree/CustomTextEditor.h"

#include "tree/NameText.h"

CustomTextEditor::CustomTextEditor() = default;
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
