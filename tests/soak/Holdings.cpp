#include "tests/soak/Soak.h"

#include "standin/host/core/HostParts.h"
#include "standin/process/ProcessCounts.h"
#include "tests/support/Sanitized.h"

#include <X11/Xlib.h>
#include <fcntl.h>
#include <unistd.h>

namespace standin
{

namespace
{
#if VORTAN_TESTS_ARE_SANITIZED
constexpr std::size_t besideTwoAllocations = 0;
#else
// The C library keeps a word beside each, and rounds up to two words.
constexpr std::size_t besideTwoAllocations = 4 * sizeof(void*);
#endif

std::size_t bytesOfNotes(const ReferenceRegistry& references)
{
    return references.NoteBlocks() * (ReferenceRegistry::bytesOfNoteBlock + besideTwoAllocations);
}

/// A panel that is made anew leaves the object that it was, which holds two suites: docs/kept-behaviours.md.
/// More than that is a leak.
struct KeptByPanels
{
    std::size_t bytes = 0;
    int suites = 0;
};

KeptByPanels keptByPanels(const HostParts& parts)
{
    const Panel* panel = parts.plugins.panels.Find("Vortan Object Panel");
    const int created = panel == nullptr ? 0 : panel->created;
    constexpr std::size_t words = 6;
    const std::size_t object = words * sizeof(void*) + besideTwoAllocations / 2;
    return {static_cast<std::size_t>(created) * object, 2 * created};
}

struct BasicWords
{
    A_Err (*acquire)(const char* name, A_long version, const void** table);
};

std::vector<std::string>& leakedTexts()
{
    static std::vector<std::string> texts;
    return texts;
}
} // namespace

Holdings HoldingsOf(Host& host)
{
    const HostParts& parts = PartsOf(host);
    Holdings held;
    const KeptByPanels kept = keptByPanels(parts);
    held.bytes = process::BytesInUse() - bytesOfNotes(parts.sensors.references) - kept.bytes;
    held.references = host.LiveReferences() + host.LeakedReferences();
    for (const SuiteCounts::Held& suite : parts.sensors.suites.AllHeld())
        held.suites += suite.count;
    held.suites -= kept.suites;
    held.descriptors = process::OpenDescriptors();
    held.threads = process::RunningThreads();
    return held;
}

void MakeLeak(Leak leak, Host& host, void* display)
{
    constexpr std::size_t leakedBytes = 600;
    switch (leak)
    {
    case Leak::none:
        break;
    case Leak::heap:
        leakedTexts().emplace_back(leakedBytes, 'x');
        break;
    case Leak::reference:
        (void)host.RunInHook([&] { (void)host.EffectReference("lamp"); });
        break;
    case Leak::suite:
    {
        const void* table = nullptr;
        (void)host.RunInHook(
            [&] {
                (void)static_cast<const BasicWords*>(host.BasicSuite())
                    ->acquire("AEGP Item Suite", 3, &table);
            });
        break;
    }
    case Leak::window:
        if (auto* connection = static_cast<Display*>(display))
        {
            (void)XCreateSimpleWindow(connection, DefaultRootWindow(connection), 0, 0, 5, 5, 0, 0, 0);
            (void)XSync(connection, False);
        }
        break;
    case Leak::descriptor:
        (void)open("/dev/null", O_RDONLY | O_CLOEXEC);
        break;
    }
}
} // namespace standin
