#include "tree/KeyDeliveries.h"

void KeyDeliveries::startEvent()
{
    isToldOfEvents = true;
    answered.clear();
}

bool KeyDeliveries::once(const juce::KeyPress& key, const std::function<bool()>& act)
{
    for (const Answered& earlier : answered)
        if (earlier.key == key)
            return earlier.isUsed;
    const bool isUsed = act();
    if (isToldOfEvents)
        answered.push_back({key, isUsed});
    return isUsed;
}
