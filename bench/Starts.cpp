#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "standin/user/HostWindow.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <dlfcn.h>
#include <fstream>
#include <map>
#include <stdexcept>
#include <unistd.h>

namespace standin
{
using namespace user;

namespace
{
constexpr int processes = 7;

/// The memory of this process that is in use, in bytes.
double residentBytes()
{
    std::ifstream file("/proc/self/statm");
    double size = 0;
    double resident = 0;
    file >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

double nanosecondsOf(const std::function<void()>& step)
{
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
}

template <class Function>
Function find(void* module, const char* name)
{
    auto* function = reinterpret_cast<Function>(dlsym(module, name));
    if (function == nullptr)
        throw std::runtime_error(std::string("the bundle has no ") + name);
    return function;
}

/// Runs this program anew, and reads "name value" lines.
std::map<std::string, double> runStart()
{
    char self[4096] = {};
    if (readlink("/proc/self/exe", self, sizeof self - 1) < 0)
        throw std::runtime_error("this program does not know its own name");
    FILE* output = popen((std::string(self) + " --start-once").c_str(), "r");
    std::map<std::string, double> figures;
    char name[64];
    double value = 0;
    while (output != nullptr && std::fscanf(output, "%63s %lf", name, &value) == 2)
        figures[name] = value;
    if (output == nullptr || pclose(output) != 0 || figures.empty())
        throw std::runtime_error("the bundle cannot be started");
    return figures;
}
} // namespace

int StartOnce()
{
    FastHost host;
    HostWindow window({{20, 20, 400, 500}, {0, 0, 400, 500}});
    std::map<std::string, double> figures;
    {
        const process::Silence silence;
        void* module = nullptr;
        AEGP_GlobalRefcon refcon = nullptr;
        host.ShowLayer(1, 100);
        figures["load"] = nanosecondsOf([&] { module = dlopen(VORTAN_BUNDLE, RTLD_NOW | RTLD_LOCAL); });
        if (module == nullptr)
            throw std::runtime_error(dlerror());
        figures["entries"] = nanosecondsOf(
            [&]
            {
                (void)find<AEGP_PluginInitFunc>(module, "EffectorAEGP")(host.Basic(), 1, 0, 7, &refcon);
                (void)find<AEGP_PluginInitFunc>(module, "PanelEntryPointFunc")(host.Basic(), 1, 0, 8,
                                                                               &refcon);
            });
        const double before = residentBytes();
        figures["open"] = nanosecondsOf([&] { (void)host.CreatePanel(window.FrameHandle()); });
        host.Set(FastHost::Panel::frontmost);
        figures["first-pass"] = nanosecondsOf([&] { host.Idle(); });
        for (int pass = 0; pass < 50; ++pass)
        {
            usleep(5000); // Painting waits for JUCE's timers.
            host.Idle();
        }
        figures["memory"] = residentBytes() - before;
        host.Die();
    }
    for (const auto& [name, value] : figures)
        std::printf("%s %.0f\n", name.c_str(), value);
    return 0;
}

void RegisterStarts(FastPanel&)
{
    benchmark::RegisterBenchmark("Start/new processes",
                                 [](benchmark::State& state)
                                 {
                                     std::map<std::string, std::vector<double>> figures;
                                     for (auto _ : state)
                                         for (const auto& [name, value] : runStart())
                                             figures[name].push_back(value);
                                     for (auto& [name, values] : figures)
                                     {
                                         std::sort(values.begin(), values.end());
                                         Result result;
                                         result.group = "Start";
                                         result.name = name;
                                         result.count = -1;
                                         result.time = values[values.size() / 2];
                                         Results().push_back(result);
                                         state.counters[name] = result.time;
                                     }
                                 })
        ->Iterations(processes);
}
} // namespace standin
