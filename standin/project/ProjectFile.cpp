#include "standin/project/ProjectFile.h"

#include "standin/core/HostParts.h"

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

/// New things get ids that nothing in the project bears, and new effects labels that are free.
void raiseIds(HostParts& parts)
{
    for (const Item& item : parts.project.items)
        parts.nextItem = std::max(parts.nextItem, item.id + 1);
    for (const Layer& layer : parts.project.layers)
    {
        parts.nextLayer = std::max(parts.nextLayer, layer.id + 1);
        for (const EffectInstance& effect : layer.effects)
            parts.nextEffect = std::max({parts.nextEffect, effect.id + 1, numberOf(effect.label) + 1});
    }
}
} // namespace

ProjectFile ProjectOf(Host& host)
{
    const HostParts& parts = host.Parts();
    ProjectFile project;
    project.state = parts.project;
    project.frontComp = parts.project.FindItem(parts.selection.frontComp) ? parts.selection.frontComp : 0;
    for (const int layer : parts.selection.layers)
        if (parts.project.FindLayer(layer) != nullptr)
            project.selectedLayers.push_back(layer);
    for (const auto& [effect, isOpen] : parts.twirledOpen)
        if (isOpen && parts.project.FindEffect(effect) != nullptr)
            project.openEffects.push_back(effect);
    return project;
}

void ReplaceProject(Host& host, const ProjectFile& project)
{
    HostParts& parts = host.Parts();
    parts.project = project.state;
    parts.references.EverythingChanged();
    parts.undo.Forget();
    parts.runtimes.clear();
    parts.twirledOpen.clear();
    for (const int effect : project.openEffects)
        parts.twirledOpen[effect] = true;
    raiseIds(parts);
    parts.selection = {};
    parts.selection.frontComp = project.frontComp;
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
