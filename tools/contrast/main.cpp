// Measures how well the program's texts can be read on the pictures that its tour leaves.
//
//     songrush_check_contrast <table of texts> <folder of pictures>
//
// Prints a report and leaves it as contrast.txt beside the pictures. Fails if a text has too little
// contrast or cannot be found.

#include "tools/contrast/Luminance.h"
#include "tools/contrast/Measure.h"
#include "tools/contrast/TextTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>

#include <cstdio>
#include <optional>

namespace {

using namespace contrast;

struct Finding {
    QString line;
    bool good;
};

QString Line(const Text& text, const QString& picture, const QString& figures) {
    return QStringLiteral("%1 %2 %3  %4 %5 %6  %7")
        .arg(picture, -34)
        .arg(text.name, -30)
        .arg(text.hand.points, 4)
        .arg(qRed(text.hand.color), 3)
        .arg(qGreen(text.hand.color), 3)
        .arg(qBlue(text.hand.color), 3)
        .arg(figures);
}

Finding Judge(const Text& text, const QDir& folder, const QString& picture) {
    const auto found = Measure(QImage(folder.filePath(picture)), text.area, text.hand);
    if (!found)
        return {Line(text, picture, QStringLiteral("NOT FOUND")), false};
    const bool good = found->worst >= text.limit;
    QString verdict = good ? QStringLiteral("ok") : QStringLiteral("TOO LOW");
    if (good && found->worst < Limit(text.hand.points))
        verdict = QStringLiteral("prescribed pair");
    const auto number = [](double value) { return QStringLiteral("%1").arg(value, 6, 'f', 2); };
    return {Line(text, picture,
                 number(found->worst) + number(found->typical) + number(text.limit) +
                     QStringLiteral("  ") + verdict),
            good};
}

/// The pictures of that name, in the order of their names.
QStringList Pictures(const QDir& folder, const QString& name) {
    const QFileInfo pattern(name);
    const QDir where(folder.filePath(pattern.path()));
    QStringList pictures;
    for (const QString& file : where.entryList({pattern.fileName()}, QDir::Files, QDir::Name))
        pictures.append(QDir::cleanPath(pattern.path() + u'/' + file));
    return pictures;
}

std::vector<Finding> Judge(const Text& text, const QDir& folder) {
    std::vector<Finding> findings;
    for (const QString& picture : Pictures(folder, text.picture))
        findings.push_back(Judge(text, folder, picture));
    if (findings.empty())
        findings.push_back({Line(text, text.picture, QStringLiteral("NO SUCH PICTURE")), false});
    return findings;
}

std::optional<QString> Read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return QString::fromUtf8(file.readAll());
}

bool Write(const QString& path, const QString& text) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0;
}

int Fail(const QString& message) {
    std::fprintf(stderr, "songrush_check_contrast: %s\n", qUtf8Printable(message));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return Fail(QStringLiteral("needs a table of texts and a folder of pictures"));
    const std::optional<QString> source = Read(QFile::decodeName(argv[1]));
    if (!source)
        return Fail(QStringLiteral("cannot read the table"));
    const TextTable table = ParseTexts(*source);
    if (!table.error.isEmpty())
        return Fail(table.error);

    const QDir folder(QFile::decodeName(argv[2]));
    QString report = QStringLiteral(
        "Contrast of the program's texts, after WCAG 2. Worst: a tenth of the ground close around "
        "the\nglyphs is no better; typical: the median.\n\n"
        "picture                            text                           size  colour       "
        " worst  typ. limit\n");
    int bad = 0;
    for (const Text& text : table.texts) {
        for (const Finding& finding : Judge(text, folder)) {
            report += finding.line + u'\n';
            bad += finding.good ? 0 : 1;
        }
    }
    report += bad == 0 ? QStringLiteral("\nAll texts can be read.\n")
                       : QStringLiteral("\n%1 not good.\n").arg(bad);
    std::fputs(qUtf8Printable(report), stdout);
    if (!Write(folder.filePath(QStringLiteral("contrast.txt")), report))
        return Fail(QStringLiteral("cannot write the report"));
    return bad == 0 ? 0 : 1;
}
