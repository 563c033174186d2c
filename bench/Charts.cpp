#include "bench/Page.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <sstream>

namespace standin
{
namespace
{
constexpr double width = 720;
constexpr double height = 420;
constexpr double left = 70;
constexpr double top = 40;
constexpr double plotWidth = 400;
constexpr double plotHeight = 320;
constexpr const char* colours[] = {"#1b6ca8", "#c8553d", "#4f772d", "#7b2d8b", "#b8860b", "#3a3a3a"};

struct Point
{
    int count;
    double value;
};
using Series = std::map<std::string, std::vector<Point>>;

/// Both axes count powers of ten.
struct Axes
{
    int lastX = 4;
    int firstY = 0;
    int lastY = 1;

    double X(double count) const { return left + std::log10(count) / lastX * plotWidth; }
    double Y(double value) const
    {
        return top + plotHeight - (std::log10(value) - firstY) / (lastY - firstY) * plotHeight;
    }
};

Axes axesFor(const Series& series)
{
    double least = 1e300;
    double most = 1;
    for (const auto& [name, points] : series)
        for (const Point& point : points)
        {
            least = std::min(least, point.value);
            most = std::max(most, point.value);
        }
    Axes axes;
    axes.firstY = static_cast<int>(std::floor(std::log10(std::min(least, most))));
    axes.lastY = std::max(axes.firstY + 1, static_cast<int>(std::ceil(std::log10(most))));
    return axes;
}

std::string text(double x, double y, const std::string& anchor, const std::string& content)
{
    std::ostringstream out;
    out << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor << "\">" << content
        << "</text>\n";
    return out.str();
}

std::string line(double x1, double y1, double x2, double y2)
{
    std::ostringstream out;
    out << "<line x1=\"" << x1 << "\" y1=\"" << y1 << "\" x2=\"" << x2 << "\" y2=\"" << y2
        << "\" stroke=\"#cccccc\"/>\n";
    return out.str();
}

std::string powerOfTen(int power)
{
    std::ostringstream out;
    out << std::pow(10.0, power);
    return out.str();
}

std::string grid(const Axes& axes)
{
    std::string out;
    for (int power = 0; power <= axes.lastX; ++power)
    {
        const double x = axes.X(std::pow(10.0, power));
        out +=
            line(x, top, x, top + plotHeight) + text(x, top + plotHeight + 18, "middle", powerOfTen(power));
    }
    for (int power = axes.firstY; power <= axes.lastY; ++power)
    {
        const double y = axes.Y(std::pow(10.0, power));
        out += line(left, y, left + plotWidth, y) + text(left - 8, y + 4, "end", powerOfTen(power));
    }
    return out;
}

std::string curve(const Axes& axes, const std::vector<Point>& points, const std::string& colour)
{
    std::ostringstream out;
    out << "<polyline fill=\"none\" stroke-width=\"2\" stroke=\"" << colour << "\" points=\"";
    for (const Point& point : points)
        out << axes.X(point.count) << "," << axes.Y(point.value) << " ";
    out << "\"/>\n";
    return out.str();
}

void draw(const std::string& file, const std::string& title, const Series& series)
{
    const Axes axes = axesFor(series);
    std::ofstream out(file);
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "\" height=\"" << height
        << "\" font-family=\"sans-serif\" font-size=\"12\">\n<rect width=\"100%\" height=\"100%\" "
           "fill=\"white\"/>\n"
        << text(left, 20, "start", title) << grid(axes)
        << text(left + plotWidth / 2, height - 12, "middle", "effects, rows or items");
    std::size_t index = 0;
    for (const auto& [name, points] : series)
    {
        const std::string colour = colours[index % std::size(colours)];
        const double y = top + 14 + 20 * static_cast<double>(index++);
        out << curve(axes, points, colour) << "<rect x=\"" << left + plotWidth + 16 << "\" y=\"" << y - 9
            << "\" width=\"10\" height=\"10\" fill=\"" << colour << "\"/>\n"
            << text(left + plotWidth + 32, y, "start", name);
    }
    out << "</svg>\n";
}

/// Of what grows. A value of 0 has no place on such an axis.
Series seriesOf(const std::vector<Result>& results, const std::function<double(const Result&)>& valueOf)
{
    static const std::map<std::string, std::string> shown = {
        {"Pass/quiet", "quiet pass"},
        {"Pass/hidden", "hidden pass"},
        {"Pass after a change/effect renamed in the host", "pass after a rename in the host"},
        {"Pass after a change/object renamed in the tree", "pass after a rename in the tree"},
        {"Rebuild/tree", "rebuild of the tree"},
        {"State table/store", "store of a tree's state"}};
    Series series;
    for (const Result& result : results)
    {
        const auto name = shown.find(result.group + "/" + result.name);
        if (name != shown.end() && result.count > 0 && valueOf(result) > 0)
            series[name->second].push_back({result.count, valueOf(result)});
    }
    return series;
}
} // namespace

void DrawCharts(const std::string& folder, const std::vector<Result>& results)
{
    draw(folder + "/performance-time.svg", "Microseconds",
         seriesOf(results, [](const Result& result) { return result.time / 1000; }));
    draw(folder + "/performance-calls.svg", "Host calls",
         seriesOf(results, [](const Result& result) { return static_cast<double>(result.calls); }));
    draw(folder + "/performance-allocations.svg", "Allocations",
         seriesOf(results,
                  [](const Result& result) { return static_cast<double>(result.taken.allocations); }));
}
} // namespace standin
