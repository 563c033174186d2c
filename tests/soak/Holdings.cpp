#include "tests/soak/Soak.h"

#include "standin/host/core/HostParts.h"
#include "standin/host/sensors/FindingIds.h"
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
constexpr std::size_t besideSixWords = 0;
#else
// The C library keeps a word beside each allocation, and rounds up to two words.
constexpr std::size_t besideSixWords = 2 * sizeof(void*);
#endif
constexpr std::size_t bytesOfSixWords = 6 * sizeof(void*) + besideSixWords;

std::size_t bytesOfNotes(const ReferenceRegistry& references)
{
    static_assert(ReferenceRegistry::heapOfNoteBlock == bytesOfSixWords - besideSixWords);
    return references.NoteBlocks() * bytesOfSixWords;
}

/// A panel that is made anew leaves the object that it was, of six words, which holds two suites:
/// docs/kept-behaviours.md. More than that is a leak.
struct KeptByPanels
{
    std::size_t bytes = 0;
    int suites = 0;
};

KeptByPanels keptByPanels(const HostParts& parts)
{
    const Panel* panel = parts.plugins.panels.Find("Vortan Object Panel");
    if (panel == nullptr)
        return {};
    const std::size_t listed = panel->formerRefcons.capacity() * sizeof(void*); // The stand-in's own.
    return {static_cast<std::size_t>(panel->created) * bytesOfSixWords + listed, 2 * panel->created};
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

Holdings HoldingsOf(Host& host, int juceWindows)
{
    const HostParts& parts = PartsOf(host);
    Holdings held;
    const KeptByPanels kept = keptByPanels(parts);
    held.bytes = process::BytesInUse() - bytesOfNotes(parts.sensors.references) - kept.bytes -
                 static_cast<std::size_t>(juceWindows) * bytesOfSixWords;
    held.references = host.LiveReferences() + host.LeakedReferences();
    for (const SuiteCounts::Held& suite : parts.sensors.suites.AllHeld())
        held.suites += suite.count;
    held.suites -= kept.suites;
    held.descriptors = process::OpenDescriptors();
    held.threads = process::RunningThreads();
    return held;
}

void ExpectKeptFindings(Host& host)
{
    host.Expect(finding::emptyUndoGroup, "AEGP_EndUndoGroup", "an empty tree has no order to write")
        .In("IdleHook");
}

std::string TakeUnexpected(Host& host)
{
    std::string unexpected = host.FindingsReport();
    (void)host.TakeFindings();
    return unexpected;
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
