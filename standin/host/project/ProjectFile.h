#pragma once
// A project as it lies in a file: the host's project and how its windows show it, as JSON. The programs open
// and save such files; samples/ holds one.
//
// Undo steps, findings and the trace are no part of it. A behaviour that a test has given to one instance is
// not either: the file names installed effects.

#include <stdexcept>
#include <string>
#include <vector>

#include "standin/host/core/Host.h"

namespace standin
{
/// A file that cannot be read, understood or written, in words for a user.
class ProjectFileError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

struct ProjectFile
{
    ProjectState state;
    int frontComp = 0;               ///< The composition whose tab is in front; 0 for none.
    std::vector<int> selectedLayers; ///< By layer id.
    std::vector<int> openEffects;    ///< Twirled open, by effect id, in ascending order.
};

/// What the host holds now.
ProjectFile ProjectOf(Host& host);

/// Puts the project in the place of the host's. Nothing of the former one can be undone to, and all
/// references are stale. Effects are known by their keys, as ReadProject gives them.
void ReplaceProject(Host& host, const ProjectFile& project);

/// Indented JSON with a final line end. Throws ProjectFileError for a name that is not UTF-8, and for an
/// effect that is not installed.
std::string WriteProject(const ProjectFile& project, const std::vector<InstalledEffect>& installed);

/// Every field is checked, and one that is unknown is an error: what a file says is taken or refused, never
/// dropped. `source` begins each message of ProjectFileError.
ProjectFile ReadProject(const std::string& text, const std::vector<InstalledEffect>& installed,
                        const std::string& source);

/// Reads the file and puts it in the place of the host's project. If anything throws, the host is unchanged.
void OpenProject(Host& host, const std::string& path);

/// Writes beside the file and then takes its place: a former file is whole if anything throws.
void SaveProject(Host& host, const std::string& path);
} // namespace standin
