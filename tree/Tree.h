#pragma once
// The whole interface of the object tree, the panel's user interface. It is implemented with JUCE; no JUCE
// type appears here. Everything is called on the host's main thread.
//
// Data crosses in three forms: item lists, lists of effect keys to add, lists of uuid texts to
// remove. The tree never calls its user: an edit stays in the tree until it is asked for.

#include "effects/ObjectItem.h"

#include <string>
#include <vector>

class ValueTreesDemo;            ///< The tree widget.
struct _TreeStateTable_Internal; ///< How each layer's tree looked when it was last cached.

// ---- The widget

/// The caller owns the widget and gives it to DeleteTreeWidget. JuceGlobalInit must have run.
ValueTreesDemo* CreateTreeWidget(bool hideToolbar);

/// Null is allowed and does nothing.
void DeleteTreeWidget(ValueTreesDemo*);

/// Deletes the root row, if there is one. The toolbar's buttons stay as they are. Null does nothing.
void ClearTree(ValueTreesDemo*);

/// Replaces the tree's whole contents by `items`, fully open and with nothing selected. An empty list
/// leaves no row and offers "Add Vortan" alone. Null does nothing.
void RefreshTree(ValueTreesDemo*, const std::vector<ObjectItem>& items);

/// Shows `text` in the notification label for ten seconds. The text that is on display already goes when it
/// would have gone anyway.
void NotifyMsg(ValueTreesDemo*, const std::string& text);

/// Puts the widget into the host's container. `embeddedView` is the platform's view that carries the
/// component, where the platform has one; `nativeParent` is the host's container, null for none.
/// Sizes are in pixels.
void addToDesktop(ValueTreesDemo*, void* embeddedView, int width, int height, void* nativeParent);

/// Each channel from 0 to 1. Requests no repaint.
void SetBGColor(ValueTreesDemo*, float red, float green, float blue, float alpha);

/// The objects of the tree in display order. Empty for null and for a tree without a root row.
std::vector<ObjectItem> GetItemsFromTree(ValueTreesDemo*);

/// What CalcItemsHash makes of GetItemsFromTree, which is worked out only if the tree has changed since.
std::uint64_t HashTreeItems(ValueTreesDemo*, std::uint64_t seed);

/// The objects of each selected row, row by row from the top: an object that is selected together with
/// its group occurs twice.
std::vector<ObjectItem> GetSelectedTreeItems(ValueTreesDemo*);

/// Offers an effect in the toolbar menu of its type. The name is copied. Null does nothing.
void AddObject(ValueTreesDemo*, VN_OBJECT_TYPE type, int key, const char* name);

/// Hands over, once, the keys of the effects that the user asked for, oldest first. Empty for null.
std::vector<int> GetKeysToBeAddedToLayer(ValueTreesDemo*);

/// Hands over, once, the uuids of the objects that the user deleted. Empty for null.
std::vector<std::string> GetEffectsToBeRemoved(ValueTreesDemo*);

/// Start and end JUCE. No widget may exist before the one or after the other.
void JuceGlobalInit();
void JuceGlobalShutDown();

// ---- The table of per-layer tree states

/// The caller owns the table and gives it to DeleteTreeStateTable.
_TreeStateTable_Internal* CreateTreeStateTable();

/// Null is allowed and does nothing.
void DeleteTreeStateTable(_TreeStateTable_Internal*);

/// Forgets every layer's state.
void ClearTreeState(_TreeStateTable_Internal*);

/// Stores how the tree looks now under `layerId`. A null table does nothing.
void CacheLayerTreeState(_TreeStateTable_Internal*, int layerId, ValueTreesDemo*);

/// Restores openness, scroll position and selection of that layer, if a state is stored, and uses the
/// stored state up.
void ApplyLayerTreeState(_TreeStateTable_Internal*, int layerId, ValueTreesDemo*);

/// True only if the layer has a stored state and the tree's present state differs from it.
bool DidLayerStateChange(_TreeStateTable_Internal*, int layerId, ValueTreesDemo*);
