#pragma once
// A host that answers as fast as it can: the slots that the panel calls, over one layer, with no book-keeping
// but a count. It checks nothing; the stand-in does that. A host's functions have no argument that says whose
// they are, so there is one of it per program.

#include "effects/ObjectItem.h"
#include "host/HostSuites.h"

#include <cstdint>
#include <string>
#include <vector>

namespace standin
{
/// An identity as a family's effect would have drawn it, another one for each number.
VN_UUID MadeUpIdentity(int number);

/// As the effects of the fast host are called.
std::string MadeUpName(int number);

/// The items of a layer of such effects.
std::vector<ObjectItem> MadeUpItems(int count);

class FastHost
{
public:
    /// The panel as the host shows it.
    enum class Panel
    {
        hidden,
        background,
        frontmost
    };

    /// What it takes to answer a call.
    enum class Speed
    {
        atOnce,
        aMicrosecond
    };

    /// Forgets everything that a former host of the program was told.
    FastHost();
    ~FastHost();
    FastHost(const FastHost&) = delete;
    FastHost& operator=(const FastHost&) = delete;

    SPBasicSuite* Basic();
    void Set(Panel);
    void Set(Speed);

    /// Another layer is the active one, with these effects alone: geometry objects, effectors and renderers
    /// in turn, each with an identity and a name of its own.
    void ShowLayer(int layerId, int effects);
    /// What a user of the host does to the effect at `index`.
    void Rename(int index, const std::string& name);

    int CountEffects() const;

    // ---- What the panel has registered

    void Idle();
    /// Opens the panel's tab, without a container if `container` is null. Gives the panel's refcon.
    void* CreatePanel(void* container);
    void Die();

    // ---- The calls

    static std::uint64_t Calls();
    /// The functions that `body` calls, each as a number that stands for its suite and slot.
    template <class Body>
    std::vector<int> CallsOf(Body body)
    {
        startRecording();
        body();
        return stopRecording();
    }

private:
    void startRecording();
    std::vector<int> stopRecording();
};
} // namespace standin
