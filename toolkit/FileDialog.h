#pragma once

#include <QFileDialog>

namespace toolkit {

class OddNames;

/// Asks for files or folders: by the desktop's own dialog where there is one, else by Qt's, with
/// the program's places at its side.
class FileDialog : public QFileDialog {
public:
    FileDialog(QWidget* owner, const QString& title, const QString& folder);
    ~FileDialog() override;

    /// Shows only the files that match one of `patterns` ("*.m3u *.pls"), without regard to case.
    void OfferFiles(const QString& description, const QString& patterns);

    /// Suggests a name for the file to be saved.
    void OfferName(const QString& name) { mName = name; }

    /// Shows only folders, one of which is chosen.
    void OfferFolders();

    /// Shows the dialog where the program's dialogs appear. Returns the chosen paths as from
    /// `platform::TextFromPath`, absolute; empty when cancelled or when the program is asked to
    /// quit.
    QStringList Choose();

protected:
    bool event(QEvent* event) override;
    void accept() final;

    /// Asked once the dialog is closed, so that messages may be shown: whether the path is taken.
    /// If not, the dialog opens again.
    virtual bool Takes(const QString&) { return true; }

    /// Whether it is a portal's dialog, which asks before replacing a file even if told not to.
    bool IsPortals() const;

private:
    bool OddNameChosen() const;
    QStringList Answer() const;
    void Wait();

    QString mName;                 ///< see `OfferName`
    bool mIsQts;                   ///< Qt's own dialog, not the desktop's
    OddNames* mOddNames = nullptr; ///< in Qt's dialogs that open something, from `Choose` on
    QList<QUrl> mSideBar;          ///< as other programs have it
    ViewMode mViewMode;            ///< likewise
};

} // namespace toolkit
