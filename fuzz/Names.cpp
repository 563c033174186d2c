// Names and match names as raw bytes: every byte comes back from the tree's text, the texts for the eye and
// the editor keep their limits, and the names of menus and rows are those that the family's header tells.

#include "effects/EffectCatalogue.h"
#include "effects/ObjectItem.h"
#include "fuzz/Input.h"
#include "fuzz/SmallHost.h"
#include "sdk/VortanFamily.h"
#include "tree/NameText.h"

#include <cstring>
#include <iterator>

namespace standin
{
namespace
{
constexpr std::size_t longestMatchName = 128;

bool isPrivate(juce::juce_wchar character) { return character >= 0x10fe00 && character < 0x10ff00; }

void checkText(const std::string& bytes)
{
    const juce::String text = TextFromBytes(bytes);
    Require(BytesFromText(text) == bytes, "the bytes of a name come back from the tree's text");
    const char* utf8 = text.toRawUTF8();
    const std::size_t length = text.getNumBytesAsUTF8();
    Require(std::strlen(utf8) == length, "no zero stands in the text");
    Require(juce::CharPointer_UTF8::isValidString(utf8, static_cast<int>(length)), "the text is UTF-8");
    Require(length >= bytes.size(), "no byte is lost");
    if (length == bytes.size())
        Require(bytes == utf8, "what is UTF-8 stays as it is");
}

void checkShown(const std::string& bytes)
{
    const juce::String text = TextFromBytes(bytes);
    const juce::String shown = ShownText(text);
    bool isPlain = true;
    for (auto at = text.getCharPointer(); !at.isEmpty();)
        isPlain = !isPrivate(at.getAndAdvance()) && isPlain;
    for (auto at = shown.getCharPointer(); !at.isEmpty();)
        Require(!isPrivate(at.getAndAdvance()), "no private character is shown");
    Require(shown.length() == std::min(text.length(), 4000), "of a long name the beginning is shown");
    if (isPlain && text.length() <= 4000)
        Require(shown == text, "a plain name is shown as it is");

    const juce::String editable = EditableText(text);
    Require(!editable.containsAnyOf("\r\n"), "an editor gets one line");
    Require(editable.length() == std::min(text.length(), 32000), "an editor gets all that it can hold");
    if (!text.containsAnyOf("\r\n") && text.length() <= 32000)
        Require(editable == text, "what an editor can hold it gets as it is");
}

void checkRowName(const std::string& bytes)
{
    std::string expected = bytes;
    for (const VortanRowName& row : VORTAN_ROW_NAMES)
    {
        const std::size_t length = std::strlen(row.defaultName);
        if (bytes.compare(0, length, row.defaultName) == 0)
            expected = row.rowName + bytes.substr(length);
    }
    Require(GetItemDisplayString(bytes) == expected, "a row's name is the family's short one");
}

void checkHash(const std::string& bytes)
{
    ObjectItem item;
    item.name = bytes;
    const std::uint64_t hash = CalcItemsHash(7, {item});
    Require(CalcItemsHash(7, {item}) == hash, "what is equal has one hash");
    item.name += 'x';
    Require(CalcItemsHash(7, {item}) != hash, "a longer name has another hash");
}

/// The text that the catalogue's menu of this family has for the name, by the family's header.
std::string menuNameOf(const std::string& name, const char* prefix)
{
    for (const VortanMenuName& row : VORTAN_MENU_NAMES)
        if (name == row.matchName && name.compare(0, std::strlen(prefix), prefix) == 0)
            return row.menuName;
    return "Not Found";
}

void checkMenu(SmallHost& host, const char* prefix, const char** matchNames, const char** displayNames)
{
    const std::string name = host.matchName.c_str();
    const bool isMember = name.compare(0, std::strlen(prefix), prefix) == 0;
    const AEGP_SuiteHandler suites(host.Basic());
    std::vector<int> keys;
    Require(FindEffectKeys(suites, keys, prefix) == A_Err_NONE, "the walk meets no error");
    Require(keys.size() == (isMember ? 1U : 0U), "an effect belongs to the family of its prefix");
    // As many keys as there are rows, so that all of them are looked at.
    constexpr std::size_t rows = 8;
    const std::vector<int> enough(rows, 1);
    const auto texts = GetObjectsPopupString(suites, enough, matchNames, displayNames);
    Require(texts.size() == rows, "each key has a text");
    for (const std::string& text : texts)
        Require(!isMember || text == menuNameOf(name, prefix), "the menus name effects as the header does");
}

void checkMatchName(const std::string& bytes)
{
    SmallHost host;
    host.matchName = bytes.substr(0, longestMatchName);
    checkMenu(host, GEOMETRY_PREFIX, src_match_name_array, src_display_array);
    checkMenu(host, EFFECTOR_PREFIX, eff_match_name_array, eff_display_array);
    checkMenu(host, RENDERER_PREFIX, ren_match_name_array, ren_display_array);
    const std::string name = host.matchName.c_str();
    const bool isMain = name.compare(0, std::strlen(MAIN_MATCH_NAME), MAIN_MATCH_NAME) == 0;
    Require((GetEffectKeyFromMatchName(host.Basic(), MAIN_MATCH_NAME) != 0) == isMain,
            "the main effect is found by its prefix");
    Require(host.IsBalanced(), "all suites come back");
}
} // namespace
} // namespace standin

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes = standin::Input(data, size).Rest();
    standin::checkText(bytes);
    standin::checkShown(bytes);
    standin::checkRowName(bytes);
    standin::checkHash(bytes);
    standin::checkMatchName(bytes);
    return 0;
}
