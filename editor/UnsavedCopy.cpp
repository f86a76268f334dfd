#include "editor/UnsavedCopy.h"

#include "library/PlaylistFormat.h"
#include "platform/File.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "platform/Worker.h"

#include <array>
#include <future>
#include <memory>
#include <string>
#include <utility>

namespace editor {

namespace fs = std::filesystem;

namespace {

/// In the program's folder or, if nothing can be written there, in the user's cache.
std::array<fs::path, 2> Places() {
    const char* name = ".unsaved.m3u";
    return {platform::ProgramFolder() / name, platform::CacheFolder() / name};
}

// A playlist, with the list's own file before the songs, marked as played.
constexpr std::int16_t kOwnFile = 1;
constexpr std::int16_t kForeignFile = 2;

/// Never destroyed: the disk may hang.
platform::Worker& Writer() {
    static auto* worker = new platform::Worker;
    return *worker;
}

std::string BytesOf(const fs::path& list, bool foreign, const std::vector<QString>& keys) {
    std::string bytes;
    library::AppendHeader(bytes);
    if (!list.empty())
        library::AppendEntry(bytes, {list.string(), foreign ? kForeignFile : kOwnFile});
    for (const QString& key : keys)
        library::AppendEntry(bytes, {platform::PathFromKey(key).string(), 0});
    return bytes;
}

std::optional<UnsavedCopy::Kept> ReadNow() {
    for (const fs::path& place : Places()) {
        QByteArray bytes;
        if (platform::ReadWholeFile(place, bytes))
            continue;
        UnsavedCopy::Kept kept;
        library::PlaylistReader reader({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        while (const auto entry = reader.Next()) {
            if (entry->played == 0) {
                kept.songs.emplace_back(entry->path);
            } else {
                kept.list = fs::path(entry->path);
                kept.foreign = entry->played == kForeignFile;
            }
        }
        if (!kept.songs.empty())
            return kept;
    }
    return std::nullopt;
}

} // namespace

std::optional<UnsavedCopy::Kept> UnsavedCopy::Read() {
    const auto read = std::make_shared<std::packaged_task<std::optional<Kept>()>>(ReadNow);
    Writer().Do([read] { (*read)(); });
    return read->get_future().get();
}

void UnsavedCopy::Keep(const fs::path& list, bool foreign, std::vector<QString> keys) {
    Writer().Do([list, foreign, keys = std::move(keys)] {
        const std::string bytes = BytesOf(list, foreign, keys);
        for (const fs::path& place : Places())
            if (!platform::ReplaceFile(place, bytes))
                return;
    });
}

void UnsavedCopy::Discard() {
    Writer().Do([] {
        for (const fs::path& place : Places()) {
            std::error_code ignored;
            fs::remove(place, ignored);
        }
    });
}

} // namespace editor
