#pragma once

#include <QFileDialog>

namespace toolkit {

class OddNames;

/// Qt's own file dialog, in which a name is chosen or typed.
class FileDialog : public QFileDialog {
public:
    FileDialog(QWidget* owner, const QString& title, const QString& folder,
               const QString& filter = {});

    /// Shows the dialog where the program's dialogs appear. Returns the chosen paths, absolute and
    /// with the platform's separators, empty when cancelled.
    QStringList Choose();

protected:
    bool event(QEvent* event) override;
    void accept() final;

    /// Whether the dialog may close with what is chosen now.
    virtual bool MayBeChosen() const { return true; }

private:
    bool OddNameChosen() const;

    OddNames* mOddNames = nullptr; // only in dialogs that open files or folders, from `Choose` on
};

} // namespace toolkit
