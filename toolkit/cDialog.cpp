#include "toolkit/cDialog.h"

#include "platform/Message.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "toolkit/ColorRef.h"
#include "toolkit/FileDialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <filesystem>

namespace {

/// Makes the folder of the chosen files the current one; returns them, or nothing if cancelled.
QStringList ChooseInFolder(toolkit::FileDialog& dialog) {
    const QStringList files = dialog.Choose();
    std::error_code ignored;
    if (!files.isEmpty())
        std::filesystem::current_path(platform::PathFromText(files.front()).parent_path(), ignored);
    return files;
}

class SaveDialog : public toolkit::FileDialog {
public:
    SaveDialog(const QString& title, const QString& pattern)
        : FileDialog(QApplication::activeWindow(), title, QDir::currentPath()),
          mEnding(pattern.mid(pattern.lastIndexOf(u'*') + 1)) {
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        setOption(DontConfirmOverwrite); // asked below, once the ending is known
    }

private:
    bool Takes(const QString& path) override {
        const std::filesystem::path folder = platform::PathFromText(path).parent_path();
        std::error_code error;
        if (!std::filesystem::is_directory(folder, error)) {
            platform::ShowMessage(
                QStringLiteral("The folder %1 does not exist.").arg(platform::ShownText(folder)),
                platform::Icon::Warning, windowTitle());
            return false;
        }
        const bool complete = path.endsWith(mEnding, Qt::CaseInsensitive);
        const std::filesystem::path file = platform::PathFromText(complete ? path : path + mEnding);
        return (complete && IsPortals()) || !std::filesystem::exists(file, error) ||
               platform::AskYesNo(QStringLiteral("%1 already exists.\nDo you want to replace it?")
                                      .arg(platform::ShownText(file.filename())),
                                  windowTitle());
    }

    QString mEnding;
};

/// One file becomes its path, several the folder of the first and their names in it.
QString Join(const QStringList& files) {
    if (files.size() == 1)
        return platform::EscapeSeparators(files.front());
    const QDir folder = QFileInfo(files.front()).absoluteDir();
    QString joined = platform::EscapeSeparators(folder.path());
    for (const QString& file : files)
        joined += u'?' + platform::EscapeSeparators(folder.relativeFilePath(file));
    return joined;
}

constexpr int kCustomColors = 16;

const QString kApplication = QStringLiteral("Temp");
const QString kSection = QStringLiteral("CustomColors");

void LoadCustomColors() {
    for (int i = 0; i < kCustomColors; ++i) {
        const QString color =
            platform::ReadSetting(kApplication, kSection, QString::number(i), QStringLiteral("0"));
        QColorDialog::setCustomColor(i, toolkit::ToQColor(color.toUInt()));
    }
}

toolkit::ColorRef FromQColor(const QColor& color) {
    return toolkit::Rgb(color.red(), color.green(), color.blue());
}

void SaveCustomColors() {
    for (int i = 0; i < kCustomColors; ++i) {
        platform::WriteSetting(kApplication, kSection, QString::number(i),
                               QString::number(FromQColor(QColorDialog::customColor(i))));
    }
}

} // namespace

QString cDialog::GetSaveName(const QString& title, const QString& description,
                             const QString& pattern, const QString& initialName) {
    SaveDialog dialog(title, pattern);
    dialog.OfferName(initialName);
    dialog.OfferFiles(description, pattern);
    return ChooseInFolder(dialog).value(0);
}

QString cDialog::GetOpenName(const QString& title, const QString& description,
                             const QString& pattern, const QString& initialName, bool multiple) {
    constexpr int kBlanks = 1024;
    toolkit::FileDialog dialog(QApplication::activeWindow(), title, QDir::currentPath());
    dialog.OfferFiles(description, pattern);
    dialog.setFileMode(multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (!initialName.isEmpty())
        dialog.selectFile(initialName);
    const QStringList files = ChooseInFolder(dialog);
    if (!multiple && !files.isEmpty())
        return files.front();
    const QString answer = files.isEmpty() ? initialName : Join(files);
    return answer.leftJustified(initialName.size() + kBlanks);
}

std::int32_t cDialog::PickColor() {
    LoadCustomColors();
    QColorDialog dialog(Qt::black, QApplication::activeWindow());
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    const bool chosen = dialog.exec() == QDialog::Accepted;
    SaveCustomColors();
    return chosen ? static_cast<std::int32_t>(FromQColor(dialog.selectedColor())) : -1;
}
