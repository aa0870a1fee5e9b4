#include "tests/reliability/FaultDisk.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> filesBelow(const fs::path &folder)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->is_regular_file()) {
            files.push_back(entry->path());
        }
    }
    return files;
}

/// As recovery copies hold texts.
std::string utf16(std::string_view ascii)
{
    std::string bytes;
    for (const char character : ascii) {
        bytes += character;
        bytes += '\0';
    }
    return bytes;
}

bool isLine(const std::string &line)
{
    return line.empty() || (line.front() == '[' && line.back() == ']') || line.find('=') != std::string::npos;
}

/// Section and key of each entry, in order.
std::vector<std::string> keysOf(const std::string &settings)
{
    std::vector<std::string> keys;
    std::istringstream lines(settings);
    std::string section;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('[')) {
            section = line;
        } else if (const auto end = line.find('='); end != std::string::npos) {
            keys.push_back(section + line.substr(0, end));
        }
    }
    return keys;
}

bool isWellFormed(const std::string &settings)
{
    std::istringstream lines(settings);
    for (std::string line; std::getline(lines, line);) {
        if (!isLine(line)) {
            return false;
        }
    }
    return settings.ends_with('\n');
}

} // namespace

std::optional<std::string> FaultDisk::content(const std::string &file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

void FaultDisk::write(const std::string &file, std::string_view bytes)
{
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

std::vector<std::string> FaultDisk::versions(const SessionPlace &place)
{
    std::vector<std::string> contents;
    for (const fs::path &file : filesBelow(place.data() + "/Tabrix/backups")) {
        if (file.extension() == ".inv") {
            contents.push_back(content(file).value_or(""));
        }
    }
    return contents;
}

bool FaultDisk::isInRecovery(const SessionPlace &place, std::string_view text)
{
    const std::vector<fs::path> files = filesBelow(place.data() + "/Tabrix/recovery");
    return std::ranges::any_of(files, [wanted = utf16(text)](const fs::path &file) {
        return file.extension() == ".copy" && content(file).value_or("").find(wanted) != std::string::npos;
    });
}

std::string FaultDisk::faultOfFile(const SessionPlace &place)
{
    const std::optional<std::string> file = content(place.file());
    if (file == place.earlier) {
        return {};
    }
    if (std::ranges::count(versions(place), place.earlier) == 0) {
        return file == place.changed ? "the earlier content is in no backup" : "the earlier content is lost";
    }
    return {};
}

std::string FaultDisk::faultOfVersions(const SessionPlace &place, const std::vector<std::string> &before)
{
    const std::vector<std::string> now = versions(place);
    const auto isGone = [&now](const std::string &version) { return std::ranges::count(now, version) == 0; };
    const auto gone = std::ranges::count_if(before, isGone);
    const bool isNewKept = std::ranges::count(now, place.earlier) != 0;
    if (gone > (isNewKept ? 1 : 0)) {
        return std::to_string(gone) + " of " + std::to_string(before.size()) + " earlier versions are gone"
            + (isNewKept ? "" : " and none has come");
    }
    const auto isForeign = [&](const std::string &version) {
        return version != place.earlier && version != place.changed && std::ranges::count(before, version) == 0;
    };
    return std::ranges::any_of(now, isForeign) ? "a version in the backups is not whole" : "";
}

std::string FaultDisk::faultOfSettings(const SessionPlace &place, const std::optional<std::string> &before)
{
    const std::optional<std::string> now = content(place.config() + "/Tabrix/Tabrix.conf");
    if (now == before) {
        return {};
    }
    if (!now) {
        return "the settings are gone";
    }
    if (!isWellFormed(*now)) {
        return now->empty() ? "the settings are empty" : "the settings are not whole";
    }
    const std::vector<std::string> keys = keysOf(*now);
    for (const std::string &key : keysOf(before.value_or(""))) {
        if (std::ranges::count(keys, key) == 0) {
            return "the settings have lost " + key;
        }
    }
    return {};
}
