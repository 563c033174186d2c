#include "standin/process/Report.h"

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>
#include <unistd.h>

namespace standin::process
{
using nlohmann::json;

void WriteAll(int descriptor, const std::string& text)
{
    std::size_t written = 0;
    while (written < text.size())
    {
        const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
        if (count <= 0)
            return;
        written += static_cast<std::size_t>(count);
    }
}

void Tell(const std::string& field, const std::string& value, int descriptor)
{
    const json line{{field, value}};
    WriteAll(descriptor, line.dump(-1, ' ', false, json::error_handler_t::replace) + "\n");
}

Report::Report(const std::string& told)
{
    std::istringstream stream(told);
    std::string line;
    while (std::getline(stream, line) && !stream.eof())
    {
        const json read = json::parse(line, nullptr, false);
        if (!read.is_object())
            continue;
        for (const auto& [field, value] : read.items())
            if (value.is_string())
                fields[field] = value.get<std::string>();
    }
}

std::string Report::Text(const std::string& field) const
{
    const auto found = fields.find(field);
    return found == fields.end() ? "" : found->second;
}

int Report::Number(const std::string& field) const { return std::atoi(Text(field).c_str()); }
} // namespace standin::process
