#pragma once
// What the windows of the desktop show of a host: plain values that are read again and compared, so that
// a window paints itself again only when something it shows has changed.

#include <string>
#include <vector>

#include "standin/host/core/Host.h"

namespace standin::script
{
struct ShownItem
{
    int id = 0;
    ItemKind kind = ItemKind::composition;
    std::string name;
    int layerCount = 0;
    bool isFront = false; ///< The composition whose layers are listed, or the one selected footage or folder.

    bool operator==(const ShownItem& other) const;
};

struct ShownLayer
{
    int id = 0;
    std::string name;
    int effectCount = 0;
    bool isSelected = false;
    bool isActive = false;

    bool operator==(const ShownLayer& other) const;
};

struct ShownParameter
{
    std::string name;
    bool isHidden = false;

    bool operator==(const ShownParameter& other) const;
};

struct ShownEffect
{
    int id = 0;
    std::string name;
    std::string defaultName;
    int group = 0;
    bool isOn = false;
    bool isHidden = false;
    bool isOpen = false;
    bool isSelected = false;
    std::vector<ShownParameter> parameters; ///< Without the input layer.

    bool operator==(const ShownEffect& other) const;
};

struct Shown
{
    std::vector<ShownItem> items;
    std::vector<ShownLayer> layers; ///< Of the front composition.
    std::string compositionName;
    int activeLayer = 0;
    std::string activeLayerName;
    std::string whyNothingIsActive;   ///< A sentence; empty while a layer is active.
    std::vector<ShownEffect> effects; ///< Of the active layer, from the top of the stack down.
    bool canUndo = false;
    bool canRedo = false;
    std::string undoName; ///< What the next undo takes back; may be empty for a step without a name.
    std::string redoName;

    bool operator==(const Shown& other) const;
    bool operator!=(const Shown& other) const { return !(*this == other); }
};

Shown ShowHost(Host& host);
} // namespace standin::script
