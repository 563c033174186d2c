#pragma once
// Knows the hash of a document's items for as long as the document stays as it is, so that an untouched tree
// is not read at every idle.

#include <juce_data_structures/juce_data_structures.h>

#include <cstdint>

class DocumentWatch : private juce::ValueTree::Listener
{
public:
    DocumentWatch();
    ~DocumentWatch() override;

    /// What CalcItemsHash makes of the items of `document`, which is watched from now on in place of the
    /// former one. An invalid document has no items.
    std::uint64_t itemsHash(const juce::ValueTree& document, std::uint64_t seed);

    /// Lets go of the document.
    void forget() { watched = {}; }

private:
    void valueTreePropertyChanged(juce::ValueTree&, const juce::Identifier&) override;
    void valueTreeChildAdded(juce::ValueTree&, juce::ValueTree&) override;
    void valueTreeChildRemoved(juce::ValueTree&, juce::ValueTree&, int) override;
    void valueTreeChildOrderChanged(juce::ValueTree&, int, int) override;

    void valueTreeRedirected(juce::ValueTree&) override;

    juce::ValueTree watched;
    bool isKnown = false;
    std::uint64_t seedOfHash = 0;
    std::uint64_t hash = 0;
};
