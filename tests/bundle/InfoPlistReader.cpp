#include "tests/bundle/InfoPlistReader.h"

#include "tests/bundle/ByteReader.h"

namespace standin
{
namespace
{
class LineReader
{
public:
    explicit LineReader(const Bytes& file) : text(file.begin(), file.end()) {}

    std::string Next()
    {
        const std::size_t end = text.find('\n', position);
        Demand(end != std::string::npos, "a line has no end");
        std::string line = text.substr(position, end - position);
        position = end + 1;
        return line;
    }

    bool IsAtEnd() const { return position == text.size(); }

private:
    std::string text;
    std::size_t position = 0;
};

/// The text of a line that is one element at the depth of a dictionary's entries.
std::string textOfElement(const std::string& line, const std::string& name)
{
    const std::string start = "\t<" + name + ">";
    const std::string end = "</" + name + ">";
    Demand(line.size() >= start.size() + end.size() && line.compare(0, start.size(), start) == 0 &&
               line.compare(line.size() - end.size(), end.size(), end) == 0,
           "no <" + name + ">: " + line);
    const std::string inside = line.substr(start.size(), line.size() - start.size() - end.size());
    Demand(inside.find_first_of("<>&") == std::string::npos, "not a plain text: " + line);
    return inside;
}
} // namespace

KeysAndValues ReadInfoPlist(const Bytes& file)
{
    LineReader lines(file);
    for (const char* line : {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>",
                             "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                             "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">",
                             "<plist version=\"1.0\">", "<dict>"})
        Demand(lines.Next() == line, std::string("missing: ") + line);

    KeysAndValues entries;
    std::string line = lines.Next();
    while (line != "</dict>")
    {
        const std::string key = textOfElement(line, "key");
        entries.emplace_back(key, textOfElement(lines.Next(), "string"));
        line = lines.Next();
    }
    Demand(lines.Next() == "</plist>" && lines.IsAtEnd(), "the list does not end properly");
    return entries;
}
} // namespace standin
