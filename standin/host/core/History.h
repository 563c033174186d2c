#pragma once
// Undo groups and the steps that can be undone, as copies of the whole project.

#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "standin/host/core/HostOptions.h"
#include "standin/host/core/ProjectState.h"

namespace standin
{
class History
{
public:
    explicit History(const HostOptions& hostOptions) : options(hostOptions) {}

    /// Opens a group, or one more level of the open one, whose name then holds.
    void StartGroup(const std::string& name, const ProjectState& now, std::string call);
    /// Closes a level. The outermost one becomes a step if something changed. False if none is open.
    bool EndGroup(const ProjectState& now);
    void CloseAllGroups(const ProjectState& now);
    int OpenGroups() const { return depth; }
    const std::string& OpenName() const { return openName; }
    /// Something is asked for that changes the project.
    void NoteWrite() { openIsAsked = true; }
    /// Whether the open group has nothing in it, as HostOptions::emptyGroup counts it.
    bool IsOpenGroupEmpty(const ProjectState& now) const;
    /// The call that opened the outermost open group.
    const std::string& OpenCall() const { return openCall; }

    /// A change outside any group, or part of the open one.
    void Change(const std::string& name, const ProjectState& before, const ProjectState& now);
    /// A change that no undo shall bring back is written into every copy.
    void ChangeAllCopies(const std::function<void(ProjectState&)>& change);
    void NoteApplied(int effectId) { applied.insert(effectId); }
    void NoteReordered(int effectId) { reordered.insert(effectId); }

    std::optional<ProjectState> Undo();
    std::optional<ProjectState> Redo();
    /// Another project is opened: there is nothing to undo, to redo or to close.
    void Forget();
    std::vector<std::string> UndoNames() const;
    std::vector<std::string> RedoNames() const;

    /// Levels of groups whose end was made to fail by a fault: the caller is not to blame that they stay
    /// open.
    int excusedLevels = 0;
    int groupsLeftOpen = 0;           ///< By hooks, all of them together.
    bool isOpenGroupReported = false; ///< Of the group that is open now.

private:
    struct Step
    {
        std::string name;
        ProjectState before;
        ProjectState after;
        std::vector<int> appliedAndReordered;
    };

    void push(const std::string& name, const ProjectState& before, const ProjectState& now);
    ProjectState stateBefore(const Step& step) const;

    const HostOptions& options;
    std::deque<Step> steps;
    std::size_t done = 0; ///< Steps before this position can be undone, the others redone.
    int depth = 0;
    std::string openName;
    std::string openCall;
    bool openIsAsked = false;
    ProjectState openBefore;
    std::set<int> applied;
    std::set<int> reordered;
};
} // namespace standin
