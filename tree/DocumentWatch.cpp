#include "tree/DocumentWatch.h"

#include "tree/TreeModel.h"

DocumentWatch::DocumentWatch() { watched.addListener(this); }

DocumentWatch::~DocumentWatch() = default;

std::uint64_t DocumentWatch::itemsHash(const juce::ValueTree& document, std::uint64_t seed)
{
    if (document != watched)
        watched = document;
    if (!isKnown || seed != seedOfHash)
    {
        std::vector<ObjectItem> items;
        getTreeItems(watched, items);
        hash = CalcItemsHash(seed, items);
        seedOfHash = seed;
        isKnown = true;
    }
    return hash;
}

void DocumentWatch::valueTreeRedirected(juce::ValueTree&) { isKnown = false; }

// The selection is in the document and in no item.
void DocumentWatch::valueTreePropertyChanged(juce::ValueTree&, const juce::Identifier& property)
{
    if (property != TreeIds::select)
        isKnown = false;
}

void DocumentWatch::valueTreeChildAdded(juce::ValueTree&, juce::ValueTree&) { isKnown = false; }

void DocumentWatch::valueTreeChildRemoved(juce::ValueTree&, juce::ValueTree&, int) { isKnown = false; }

void DocumentWatch::valueTreeChildOrderChanged(juce::ValueTree&, int, int) { isKnown = false; }
