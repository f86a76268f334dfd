#pragma once

#include <QListWidget>
#include <QString>
#include <filesystem>
#include <vector>

class QFileDialog;
class QLabel;
class QUrl;

namespace toolkit {

/// A list, for one of Qt's file dialogs, of what Qt leaves out: files (or folders, in a dialog for
/// folders) whose names are not valid text. Hidden in a folder that has none.
class OddNames : public QListWidget {
public:
    /// Becomes part of the dialog, whose mode and filters must already be set.
    explicit OddNames(QFileDialog& dialog);

    /// The selected path, as from `platform::TextFromPath`; empty if there is none.
    QString Chosen() const;

private:
    void Fill(const QString& folder);
    void Offer(const std::vector<std::filesystem::path>& files);
    bool Matches(const QString& name) const;

    QFileDialog& mDialog;
    QLabel* mCaption;
    QString mFolder; ///< whose names are shown or still looked for
};

/// The path that a dialog's answer stands for, as from `platform::TextFromPath`. Desktops answer in
/// valid text, with U+FFFD for anything else: such a name stands for the file whose name looks the
/// same, if there is only one.
QString PathOfAnswer(const QUrl& answer);

} // namespace toolkit
