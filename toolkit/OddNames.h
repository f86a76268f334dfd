#pragma once

#include <QListWidget>
#include <QString>

class QFileDialog;
class QLabel;

namespace toolkit {

/// Adds to a file dialog what Qt leaves out: files (or folders, in a dialog for folders) whose
/// names are not valid text. Hidden in a folder that has none.
class OddNames : public QListWidget {
public:
    /// Becomes part of the dialog. The dialog's mode and filters must be set before.
    explicit OddNames(QFileDialog& dialog);

    /// The selected path, as from `platform::TextFromPath`; empty if there is none.
    QString Chosen() const;

private:
    void Fill(const QString& folder);
    bool Offers(const QString& name) const;

    QFileDialog& mDialog;
    QLabel* mCaption;
};

} // namespace toolkit
