// Project files: any text is refused in words or read, and what was read is written and read again without a
// change, by the file and by a host that has opened it.

#include "fuzz/Input.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/family/Family.h"
#include "standin/host/project/ProjectFile.h"

#include <optional>

namespace standin
{
namespace
{
bool areEqual(const ProjectFile& one, const ProjectFile& other)
{
    return one.state == other.state && one.frontComp == other.frontComp &&
           one.selectedLayers == other.selectedLayers && one.openEffects == other.openEffects;
}

std::optional<ProjectFile> read(const std::string& text, const std::vector<InstalledEffect>& installed)
{
    try
    {
        return ReadProject(text, installed, "fuzzed");
    }
    catch (const ProjectFileError& error)
    {
        Require(std::string(error.what()).compare(0, 8, "fuzzed: ") == 0, "a complaint names the file");
        return std::nullopt;
    }
}

/// Nothing that is added has an id that something bears, nor one that is none.
void checkNewIds(Host& host)
{
    const int comp = host.AddComposition("new");
    const int layer = host.AddLayer(comp);
    const int effect = host.AddEffect(layer, "ADBE Fill");
    Require(comp > 0 && layer > 0 && effect > 0, "new ids lie above 0");
    int comps = 0;
    int layers = 0;
    int effects = 0;
    for (const Item& each : host.State().items)
        comps += each.id == comp ? 1 : 0;
    for (const Layer& each : host.State().layers)
    {
        layers += each.id == layer ? 1 : 0;
        for (const EffectInstance& instance : each.effects)
            effects += instance.id == effect ? 1 : 0;
    }
    Require(comps == 1 && layers == 1 && effects == 1, "new ids are new");
    Require(read(WriteProject(ProjectOf(host), host.InstalledEffects()), host.InstalledEffects()).has_value(),
            "what has been added can be saved and opened");
}

void check(const std::string& text)
{
    static const std::vector<InstalledEffect> installed = []
    {
        Host host;
        InstallFamily(host);
        return host.InstalledEffects();
    }();
    const std::optional<ProjectFile> project = read(text, installed);
    if (!project)
        return;
    const std::string written = WriteProject(*project, installed);
    const std::optional<ProjectFile> again = read(written, installed);
    Require(again && areEqual(*again, *project), "what is written reads back the same");
    Require(WriteProject(*again, installed) == written, "and is written the same again");

    Host host;
    InstallFamily(host);
    ReplaceProject(host, *project);
    Require(host.State() == project->state, "a host holds what was read");
    (void)host.RunIdle();
    Require(host.FindingsReport().empty(), "opening a project is no finding");
    checkNewIds(host);
}
} // namespace
} // namespace standin

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    standin::check(standin::Input(data, size).Rest());
    return 0;
}
