#include "standin/host/project/ProjectFile.h"

#include "standin/host/core/HostParts.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace standin
{
namespace
{
[[noreturn]] void failWithReason(const std::string& path, const char* what)
{
    throw ProjectFileError(path + ": " + what + ": " + std::strerror(errno));
}

std::string readAll(const std::string& path)
{
    if (std::filesystem::is_directory(path))
        throw ProjectFileError(path + ": this is a folder");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        failWithReason(path, "cannot be read");
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad())
        failWithReason(path, "cannot be read");
    return text;
}

/// All of it reaches the disk before this returns.
void writeAll(const std::string& path, const std::string& text)
{
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        failWithReason(path, "cannot be written");
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), file) == text.size() &&
                           std::fflush(file) == 0 && fsync(fileno(file)) == 0;
    const bool isClosed = std::fclose(file) == 0;
    if (isWritten && isClosed)
        return;
    const int reason = errno;
    (void)std::remove(path.c_str());
    errno = reason;
    failWithReason(path, "cannot be written");
}

/// The number of a label like those that new effects get, "e12"; 0 for any other.
int numberOf(const std::string& label)
{
    constexpr std::size_t mostDigits = 9;
    const bool isLikeThose = label.size() > 1 && label.size() <= 1 + mostDigits && label[0] == 'e' &&
                             label.find_first_not_of("0123456789", 1) == std::string::npos;
    return isLikeThose ? std::stoi(label.substr(1)) : 0;
}

/// New things get unused ids, and new effects unused labels.
void raiseIds(HostParts& parts)
{
    for (const Item& item : parts.project.state.items)
        parts.project.nextItem = std::max(parts.project.nextItem, item.id + 1);
    for (const Layer& layer : parts.project.state.layers)
    {
        parts.project.nextLayer = std::max(parts.project.nextLayer, layer.id + 1);
        for (const EffectInstance& effect : layer.effects)
            parts.project.nextEffect =
                std::max({parts.project.nextEffect, effect.id + 1, numberOf(effect.label) + 1});
    }
}
} // namespace

ProjectFile ProjectOf(Host& host)
{
    const HostParts& parts = PartsOf(host);
    ProjectFile project;
    project.state = parts.project.state;
    project.frontComp = parts.project.state.FindItem(parts.project.selection.frontComp)
                            ? parts.project.selection.frontComp
                            : 0;
    for (const int layer : parts.project.selection.layers)
        if (parts.project.state.FindLayer(layer) != nullptr)
            project.selectedLayers.push_back(layer);
    for (const auto& [effect, isOpen] : parts.project.twirledOpen)
        if (isOpen && parts.project.state.FindEffect(effect) != nullptr)
            project.openEffects.push_back(effect);
    return project;
}

void ReplaceProject(Host& host, const ProjectFile& project)
{
    HostParts& parts = PartsOf(host);
    parts.project.state = project.state;
    parts.sensors.references.EverythingChanged();
    parts.history.Forget();
    parts.project.runtimes.clear();
    parts.project.twirledOpen.clear();
    for (const int effect : project.openEffects)
        parts.project.twirledOpen[effect] = true;
    raiseIds(parts);
    parts.project.selection = {};
    parts.project.selection.frontComp = project.frontComp;
    host.User().SelectLayers(project.selectedLayers);
}

void OpenProject(Host& host, const std::string& path)
{
    ReplaceProject(host, ReadProject(readAll(path), host.InstalledEffects(), path));
}

void SaveProject(Host& host, const std::string& path)
{
    const std::string text = WriteProject(ProjectOf(host), host.InstalledEffects());
    const std::string beside = path + ".new";
    writeAll(beside, text);
    if (std::rename(beside.c_str(), path.c_str()) == 0)
        return;
    const int reason = errno;
    (void)std::remove(beside.c_str());
    errno = reason;
    failWithReason(path, "cannot be written");
}
} // namespace standin
