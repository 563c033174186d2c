#include "tree/TreeKeys.h"

#include "tree/ValueTreesDemo.h"

void AnnounceTreeEvent(void* view, KeyboardOwner owner)
{
    for (int i = 0; i < juce::ComponentPeer::getNumPeers(); ++i)
    {
        auto* peer = juce::ComponentPeer::getPeer(i);
        if (peer->getNativeHandle() == view)
            if (auto* panel = dynamic_cast<ValueTreesDemo*>(&peer->getComponent()))
                panel->panelKeys.startEvent(owner);
    }
}
