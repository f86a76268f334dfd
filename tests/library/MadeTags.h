#pragma once

#include <string>

// Newer tags made byte by byte.

/// A number in `bytes` bytes with `bits` bits each, the highest first.
inline std::string Number(std::size_t number, int bytes, int bits) {
    std::string text;
    for (int i = bytes - 1; i >= 0; --i)
        text += static_cast<char>(number >> (i * bits) & ((1U << bits) - 1));
    return text;
}

/// A frame of ID3v2.`version` that says to have `size` bytes; with -1 as many as it has.
inline std::string Frame(int version, const std::string& id, const std::string& bytes,
                         long size = -1, const std::string& flags = std::string(2, '\0')) {
    const std::size_t said = size < 0 ? bytes.size() : static_cast<std::size_t>(size);
    const std::string number = Number(said, version == 2 ? 3 : 4, version == 4 ? 7 : 8);
    return id + number + (version == 2 ? "" : flags) + bytes;
}

inline std::string Tag(int version, const std::string& frames, int flags = 0, long size = -1) {
    const std::size_t said = size < 0 ? frames.size() : static_cast<std::size_t>(size);
    return "ID3" + Number(static_cast<std::size_t>(version), 1, 8) + '\0' +
           static_cast<char>(flags) + Number(said, 4, 7) + frames;
}

inline std::string Little(std::size_t number) {
    std::string text = Number(number, 4, 8);
    return {text.rbegin(), text.rend()};
}

inline std::string Item(const std::string& key, const std::string& value, std::size_t flags = 0) {
    return Little(value.size()) + Little(flags) + key + '\0' + value;
}

inline std::string Ape(const std::string& items, std::size_t count, long size = -1) {
    const std::size_t said = (size < 0 ? items.size() + 32 : static_cast<std::size_t>(size));
    return items + "APETAGEX" + Little(2000) + Little(said) + Little(count) + Little(0) +
           std::string(8, '\0');
}
