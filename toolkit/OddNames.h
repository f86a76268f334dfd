#pragma once

#include <QListWidget>
#include <QString>

class QFileDialog;
class QLabel;

namespace toolkit {

/// Offers in a file dialog what the windowing toolkit leaves out of it: files, or in a dialog for
/// folders folders, whose names are no valid text. Hidden where a folder has none.
class OddNames : public QListWidget {
public:
    /// Becomes part of the dialog, whose mode and filters are set before.
    explicit OddNames(QFileDialog& dialog);

    /// The path that is selected here, as of `platform::TextFromPath`; empty when none is.
    QString Chosen() const;

private:
    void Fill(const QString& folder);
    bool Offers(const QString& name) const;

    QFileDialog& mDialog;
    QLabel* mCaption;
};

} // namespace toolkit
