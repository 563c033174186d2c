#pragma once
// The scenario that --record writes: first the lines that build the project as it is, then what the user
// does. Each line is on the disk before the next, so that nothing is lost if the program is ended.

#include "standin/host/core/Host.h"
#include "standin/script/Writer.h"
#include "standin/script/record/ActionRecord.h"

#include <fstream>
#include <functional>

namespace standin::script
{
class ScenarioRecording : public ActionRecord
{
public:
    /// Throws std::runtime_error, in words for a user, if the file cannot be written.
    ScenarioRecording(Host& host, const std::string& file);

    /// The lines that build the project, and the panel.
    void Begin();
    /// What the active layer's stack is in the end.
    void End();

    void Line(const std::string& pattern, const std::vector<std::string>& blanks = {}) override;
    void Comment(const std::string& text) override;
    /// A line of what is done in the panel.
    void PanelLine(const std::string& pattern, const std::vector<std::string>& blanks);

    /// Called before a line of the desktop's own: what has happened in the panel before it is written first.
    std::function<void()> beforeLine;

private:
    void item(const Item& item);
    void layer(const Layer& layer);
    void effect(const EffectInstance& effect);
    void selection();

    Host& host;
    std::ofstream stream;
    ScenarioWriter writer;
};
} // namespace standin::script
