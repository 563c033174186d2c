// Measures what the panel costs.
//   panel-bench [--page FILE] [--charts FOLDER] [--samples MOST] [options of Google Benchmark]

#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "bench/Page.h"
#include "standin/user/HostWindow.h"
#include "standin/user/x11/Xvfb.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <unistd.h>

namespace
{
struct Options
{
    std::string page;
    std::string charts;
};

/// Takes our own options out of the arguments.
Options takeOptions(int& count, char** arguments)
{
    Options options;
    int kept = 1;
    for (int i = 1; i < count; ++i)
    {
        if (std::strcmp(arguments[i], "--page") == 0 && i + 1 < count)
            options.page = arguments[++i];
        else if (std::strcmp(arguments[i], "--charts") == 0 && i + 1 < count)
            options.charts = arguments[++i];
        else if (std::strcmp(arguments[i], "--samples") == 0 && i + 1 < count)
            standin::LimitSamples(std::atoi(arguments[++i]));
        else
            arguments[kept++] = arguments[i];
    }
    count = kept;
    return options;
}

/// The panel prints; the table goes to where standard output went before.
void run(standin::FastPanel& panel, void* window, std::ostream& table)
{
    standin::RegisterPasses(panel);
    standin::RegisterEdits(panel);
    standin::RegisterTree(panel, window);
    standin::RegisterHashes(panel);
    standin::RegisterStarts(panel);
    benchmark::ConsoleReporter reporter(benchmark::ConsoleReporter::OO_Tabular);
    reporter.SetOutputStream(&table);
    reporter.SetErrorStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::ClearRegisteredBenchmarks();
}

int measure(int count, char** arguments)
{
    const Options options = takeOptions(count, arguments);
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments))
        return 1;
    std::ofstream table("/dev/fd/" + std::to_string(dup(STDOUT_FILENO)));
    {
        const standin::user::Xvfb server(1000, 800);
        standin::user::HostWindow window({{20, 20, 400, 500}, {0, 0, 400, 500}});
        standin::user::HostWindow bareWindow({{440, 20, 400, 500}, {0, 0, 400, 500}});
        standin::FastPanel panel(window.FrameHandle());
        run(panel, bareWindow.FrameHandle(), table);
    }
    if (!options.page.empty())
        standin::WritePage(options.page, standin::Results());
    if (!options.charts.empty())
        standin::DrawCharts(options.charts, standin::Results());
    return 0;
}
} // namespace

int main(int count, char** arguments)
{
    try
    {
        if (count == 2 && std::strcmp(arguments[1], "--start-once") == 0)
            return standin::StartOnce();
        return measure(count, arguments);
    }
    catch (const std::exception& exception)
    {
        std::fprintf(stderr, "panel-bench: %s\n", exception.what());
        return 1;
    }
}
