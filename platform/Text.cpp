#include "platform/Text.h"

#include <QList>
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>

namespace platform {

namespace {

constexpr bool kBackslashSeparates = std::filesystem::path::preferred_separator == '\\';
constexpr char16_t kByteBase = 0xDC00; // lone low surrogates stand for single bytes

/// Windows-1252, codes 128 to 159; the rest is Latin-1.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t FromWindows1252(unsigned char byte) {
    return byte >= 128 && byte < 160 ? kWindows1252[byte - 128u] : byte;
}

/// Decodes UTF-8; nothing if it is not valid. A byte order mark is a character like any other.
std::optional<QString> Utf8(std::string_view bytes) {
    using Flag = QStringDecoder::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text =
        decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

/// Length in bytes of the valid UTF-8 sequence at the start of `bytes`; 0 if there is none.
std::size_t ValidLength(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length > bytes.size())
        return 0;
    return Utf8(bytes.substr(0, length)) ? length : 0;
}

/// Decodes UTF-8, each byte that is not part of a valid sequence by `fallback`.
template <typename Fallback> QString Decode(std::string_view bytes, Fallback fallback) {
    if (const auto whole = Utf8(bytes))
        return *whole;
    QString text;
    while (!bytes.empty()) {
        const std::size_t length = ValidLength(bytes);
        if (length == 0)
            text += QChar(fallback(static_cast<unsigned char>(bytes.front())));
        else
            text += *Utf8(bytes.substr(0, length));
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

std::string_view Bytes(const std::u8string& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size()};
}

bool StandsForByte(QChar c) {
    return c.unicode() >= kByteBase + 0x80 && c.unicode() <= kByteBase + 0xFF;
}

template <typename View> View WithoutBlanks(View text) {
    const auto isBlank = [](auto c) { return c == u' '; };
    const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto last = std::find_if_not(text.rbegin(), std::make_reverse_iterator(first), isBlank);
    return View(first, last.base());
}

constexpr QChar kEscape(0xFDD0); // a noncharacter, which no real name has

struct Escape {
    QChar plain;
    QChar letter;
};
const Escape kEscapes[] = {{u'?', u'q'}, {u'\\', u'b'}, {u' ', u's'}, {kEscape, u'e'}};

} // namespace

QString TextFromPath(const std::filesystem::path& path) {
    QString text = Decode(Bytes(path.u8string()),
                          [](unsigned char byte) { return char16_t(kByteBase + byte); });
    return kBackslashSeparates ? text.replace(u'\\', u'/') : text;
}

std::filesystem::path PathFromText(const QString& text) {
    QByteArray bytes;
    qsizetype from = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size()) {
            ++i; // a pair, whose second half is not a byte
        } else if (StandsForByte(text[i])) {
            bytes += QStringView(text).mid(from, i - from).toUtf8();
            bytes += static_cast<char>(text[i].unicode() & 0xFF);
            from = i + 1;
        }
    }
    bytes += QStringView(text).mid(from).toUtf8();
    return std::filesystem::path(std::u8string(bytes.begin(), bytes.end()));
}

QString ShownText(std::string_view bytes) { return Decode(bytes, FromWindows1252); }

QString ShownText(const std::filesystem::path& path) { return ShownText(Bytes(path.u8string())); }

QByteArray SystemBytes(const QString& text) { return text.toLocal8Bit(); }

QString TextFromWindows1252(std::string_view bytes) {
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        return QChar(FromWindows1252(static_cast<unsigned char>(byte)));
    });
    return text;
}

QByteArray Windows1252FromText(const QString& text) {
    QByteArray bytes;
    for (const char32_t c : text.toUcs4()) {
        const auto found = std::find(kWindows1252.begin(), kWindows1252.end(), c);
        if (found != kWindows1252.end())
            bytes += static_cast<char>(128 + std::distance(kWindows1252.begin(), found));
        else
            bytes += c < 128 || (c >= 160 && c < 256) ? static_cast<char>(c) : '?';
    }
    return bytes;
}

QString TrimBlanks(const QString& text) { return WithoutBlanks(QStringView(text)).toString(); }

std::string_view TrimBlanks(std::string_view text) { return WithoutBlanks(text); }

QString AfterLastSeparator(const QString& text) {
    // With a "/" in the text, a backslash may be part of a name; without one the path must come
    // from another system.
    if (!kBackslashSeparates && text.contains(u'/'))
        return text.mid(text.lastIndexOf(u'/') + 1);
    return text.mid(std::max(text.lastIndexOf(u'/'), text.lastIndexOf(u'\\')) + 1);
}

QString EscapeSeparators(const QString& text) {
    QString escaped;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const auto* found = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                         [c](const Escape& e) { return e.plain == c; });
        const bool plain = found == std::end(kEscapes) || (c == u' ' && i + 1 < text.size());
        if (plain)
            escaped += c;
        else
            (escaped += kEscape) += found->letter;
    }
    return escaped;
}

QString UnescapeSeparators(const QString& text) {
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar letter = text[i] == kEscape && i + 1 < text.size() ? text[i + 1] : QChar();
        const auto* found = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                         [letter](const Escape& e) { return e.letter == letter; });
        const bool escaped = found != std::end(kEscapes);
        plain += escaped ? found->plain : text[i];
        i += escaped ? 1 : 0;
    }
    return plain;
}

QString KeyFromPath(const std::filesystem::path& path) {
    return EscapeSeparators(TextFromPath(path)).replace(u'/', u'?');
}

std::filesystem::path PathFromKey(const QString& key) {
    return PathFromText(UnescapeSeparators(QString(key).replace(u'?', u'/')));
}

} // namespace platform
