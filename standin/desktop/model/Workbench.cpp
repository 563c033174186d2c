#include "standin/desktop/model/Workbench.h"

#include "standin/host/bundle/EffectModule.h"
#include "standin/host/family/Family.h"
#include "standin/host/family/KeptSuites.h"
#include "standin/host/project/ProjectFile.h"

#include <algorithm>

namespace standin::desktop
{
Workbench::Workbench(ContainerProvider& containers)
{
    InstallFamily(host);
    host.SetContainerProvider(&containers);
}

void Workbench::RecordWith(script::ActionRecord* one)
{
    record = one;
    designer.RecordWith(one);
    dock.RecordWith(one);
}

void Workbench::say(const std::string& pattern, const std::vector<std::string>& blanks) const
{
    if (record != nullptr)
        record->Line(pattern, blanks);
}

void Workbench::LoadBundle(const std::string& file)
{
    bundle = std::make_unique<Bundle>(file);
    bundle->LoadAll(host);
    Collect("Entry points");
    messages.Add(MessageKind::note, "Loaded " + file);
}

void Workbench::InstallEffect(const std::string& file)
{
    InstallEffectModule(host, file);
    messages.Add(MessageKind::note, "Installed " + file);
}

void Workbench::Idle(double now, IdleMode mode)
{
    ++passes;
    if (mode == IdleMode::starved)
        return;
    Collect("Between idle passes");
    const std::size_t before = host.Trace().Count();
    (void)host.RunIdle(mode);
    meter.Tick(now);
    callsInLastPass = host.Trace().Count() - before;
    Collect("Idle pass");
}

void Workbench::Collect(const std::string& origin)
{
    const std::vector<std::string> news = host.CallTexts();
    if (onCall)
        std::for_each(news.begin(), news.end(), onCall);
    calls.Add(origin, news);
    host.ClearTrace();
    for (const std::string& line : printed.TakeLines())
    {
        if (onPrinted)
            onPrinted(line);
        messages.Add(MessageKind::printed, line);
    }
    const std::vector<Alert>& alerts = host.Alerts();
    for (; alertsTaken < alerts.size(); ++alertsTaken)
        messages.Add(MessageKind::alert, alerts[alertsTaken].text);
    takeFindings();
}

void Workbench::takeFindings()
{
    const std::vector<Finding> all = host.Findings().All();
    for (; findings < all.size(); ++findings)
        messages.Add(MessageKind::finding, all[findings].Text());
}

bool Workbench::Open(const std::string& path)
{
    try
    {
        OpenProject(host, path);
        if (record != nullptr)
            record->Comment("The project " + path +
                            " is opened. A scenario cannot: start a new recording with it.");
        messages.Add(MessageKind::note, "Opened " + path);
        return true;
    }
    catch (const ProjectFileError& error)
    {
        messages.Add(MessageKind::failure, error.what());
        return false;
    }
}

bool Workbench::Save(const std::string& path)
{
    try
    {
        SaveProject(host, path);
        messages.Add(MessageKind::note, "Saved " + path);
        return true;
    }
    catch (const ProjectFileError& error)
    {
        messages.Add(MessageKind::failure, error.what());
        return false;
    }
}

void Workbench::PanelGotFocus()
{
    host.User().Activate(ActivePanel::ours);
    say("activate WORD", {"panel"});
}

std::vector<MenuItem> Workbench::WindowMenu()
{
    (void)host.UpdateMenus();
    Collect("Update menus");
    std::vector<MenuItem> items;
    for (const MenuItem& item : host.MenuItems())
        if (item.menu == menuWindow)
            items.push_back(item);
    return items;
}

void Workbench::ChooseFromWindowMenu(const std::string& name)
{
    say("choose TEXT in the WORD menu", {name, "Window"});
    if (!host.ChooseMenuItem(name))
        messages.Add(MessageKind::failure, "No plug-in took the menu entry \"" + name + "\"");
    Collect("Menu entry \"" + name + "\"");
}

template <class Call>
void Workbench::asSibling(const char* what, Call call)
{
    if (bundle == nullptr)
        return messages.Add(MessageKind::failure, std::string(what) + ": no bundle is loaded");
    Sibling sibling(host);
    try
    {
        call(sibling);
    }
    catch (const std::runtime_error& error)
    {
        messages.Add(MessageKind::failure, std::string(what) + ": " + error.what());
    }
    Collect(what);
}

void Workbench::SiblingOpensPanel(Force force)
{
    say(force == Force::always ? "a sibling opens the panel by force" : "a sibling opens the panel");
    asSibling("A sibling opens the panel", [force](Sibling& sibling) { (void)sibling.OpenPanel(force); });
}

void Workbench::SiblingRefreshes()
{
    say("a sibling refreshes the panel");
    asSibling("A sibling refreshes the panel", [](Sibling& sibling) { (void)sibling.RefreshPanel(); });
}

void Workbench::SiblingNotifies(const std::string& text)
{
    say("a sibling notifies TEXT", {text});
    asSibling("A sibling notifies the panel",
              [&](Sibling& sibling) { (void)sibling.NotifyPanel(text.c_str()); });
}

void Workbench::SiblingQueues(int count)
{
    say("a sibling queues NUMBER functions", {std::to_string(count)});
    asSibling("A sibling queues functions",
              [this, count](Sibling& sibling)
              {
                  for (int i = 0; i < count; ++i)
                      (void)sibling.QueueIdleFunction(&Workbench::noteQueued, this);
              });
}

int Workbench::noteQueued(int, void*, void* refcon)
{
    auto& self = *static_cast<Workbench*>(refcon);
    self.messages.Add(MessageKind::note, "Queued function " + std::to_string(++self.queuedSoFar) + " ran");
    return errNone;
}

std::string Workbench::Quit()
{
    Collect("Between idle passes");
    ExpectKeptSuites(host);
    host.Quit();
    Bundle::KeepMemoryOf(host);
    Collect("The end");
    return host.FindingsReport();
}
} // namespace standin::desktop
