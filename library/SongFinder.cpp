#include "library/SongFinder.h"

#include "library/AnyList.h"
#include "library/PlaylistFormat.h"
#include "platform/Text.h"

#include <QByteArray>
#include <algorithm>
#include <cctype>
#include <utility>
#include <vector>

namespace library {

namespace fs = std::filesystem;

namespace {

constexpr char kSlash = '/';
constexpr bool kBackslashSeparates = fs::path::preferred_separator == '\\';

std::string Utf8(const QString& text) { return text.toUtf8().toStdString(); }

/// A name without differences of case or of composed letters, for comparing.
std::string Folded(std::string_view name) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (!std::all_of(name.begin(), name.end(), isAscii))
        return Utf8(
            platform::ShownText(name).normalized(QString::NormalizationForm_C).toCaseFolded());
    std::string folded(name);
    for (char& c : folded)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return folded;
}

/// `text` with "%20" and the like decoded; unchanged if any "%" is not such a code.
std::string WithoutPercents(const std::string& text) {
    const auto isHex = [&text](std::size_t at) {
        return at < text.size() && std::isxdigit(static_cast<unsigned char>(text[at])) != 0;
    };
    for (std::size_t at = text.find('%'); at != text.npos; at = text.find('%', at + 1)) {
        if (!isHex(at + 1) || !isHex(at + 2))
            return text;
    }
    return QByteArray::fromPercentEncoding(QByteArray::fromStdString(text)).toStdString();
}

/// The path of an address on this computer; empty for others.
std::string PathOfAddress(std::string_view address) {
    constexpr std::string_view kScheme = "file://";
    constexpr std::string_view kThisComputer = "localhost";
    if (Folded(address.substr(0, kScheme.size())) != kScheme)
        return {};
    address.remove_prefix(kScheme.size());
    if (Folded(address.substr(0, kThisComputer.size())) == kThisComputer)
        address.remove_prefix(kThisComputer.size());
    if (!address.starts_with(kSlash))
        return {};
    const bool drive = kBackslashSeparates && address.size() > 2 && address[2] == ':';
    return WithoutPercents(std::string(address.substr(drive ? 1 : 0)));
}

/// The ways in which a path may be meant, the likelier ones first.
std::vector<std::string> Spellings(std::string path) {
    std::vector<std::string> spellings{std::move(path)};
    const auto add = [&spellings](std::string spelling) {
        if (spelling != spellings.back() && spelling.find('\0') == spelling.npos)
            spellings.push_back(std::move(spelling));
    };
    add(Utf8(platform::ShownText(std::string_view(spellings.front()))));
    std::string slashed = spellings.back();
    std::replace(slashed.begin(), slashed.end(), '\\', kSlash);
    add(slashed);
    add(WithoutPercents(slashed));
    return spellings;
}

} // namespace

SongFinder::SongFinder(const fs::path& folder) : mFolder((folder / "").string()) {}

std::optional<std::string> SongFinder::Find(std::string_view entry) {
    std::string path = IsAddress(entry) ? PathOfAddress(entry) : std::string(entry);
    if (path.empty() || path.find('\0') != path.npos || HasListName(path))
        return std::nullopt;
    std::vector<std::string> spellings = Spellings(std::move(path));
    for (std::string& spelling : spellings) {
        if (!spelling.starts_with(kSlash) && !fs::path(spelling).is_absolute())
            spelling.insert(0, mFolder);
        if (Exists(spelling))
            return spelling;
    }
    for (const std::string& spelling : spellings) {
        if (auto found = FindWithoutCase(spelling))
            return found;
    }
    return spellings.back();
}

bool SongFinder::Exists(const std::string& path) {
    const std::size_t name = path.rfind(kSlash) + 1;
    const auto listed = mNames.find(path.substr(0, name));
    if (listed == mNames.end()) {
        std::error_code error;
        return fs::exists(path, error);
    }
    const auto [begin, end] = listed->second.equal_range(Folded(path.substr(name)));
    return std::any_of(begin, end, [&](const auto& names) {
        return path.compare(name, path.npos, names.second) == 0;
    });
}

std::optional<std::string> SongFinder::FindWithoutCase(const std::string& path) {
    std::size_t begin = fs::path(path).root_path().string().size();
    std::string found = path.substr(0, begin);
    while (begin < path.size()) {
        const std::size_t end = std::min(path.find(kSlash, begin), path.size());
        const auto known = mFolders.find(path.substr(0, end));
        if (known != mFolders.end()) {
            found = known->second;
        } else {
            const auto name = NameIn(found, path.substr(begin, end - begin));
            if (!name)
                return std::nullopt;
            found += *name;
            if (end < path.size())
                mFolders.emplace(path.substr(0, end), found);
        }
        if (end < path.size())
            found += kSlash;
        begin = end + 1;
    }
    return found;
}

/// How the name is spelt in the folder; nothing if it is not there in any mixture of cases.
std::optional<std::string> SongFinder::NameIn(const std::string& folder, const std::string& name) {
    if (name.empty() || name == "." || name == ".." || Exists(folder + name))
        return name;
    const Names& names = NamesIn(folder);
    const auto found = names.find(Folded(name));
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

const SongFinder::Names& SongFinder::NamesIn(const std::string& folder) {
    const auto [listed, isNew] = mNames.try_emplace(folder);
    if (isNew) {
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            const std::string name = entry->path().filename().string();
            listed->second.emplace(Folded(name), name);
        }
    }
    return listed->second;
}

} // namespace library
