#pragma once

#include "toolkit/Form.h"

#include <filesystem>

class QLabel;
class QLineEdit;
class QPushButton;

/// The dialog in which a song's title, artist and file name are corrected.
class f_Edit : public toolkit::Form {
    Q_OBJECT
public:
    f_Edit();

    /// Shows the song's fields and waits until the dialog is closed. If it was applied, writes the
    /// tag and renames the file, never over another one; failures are ignored. Returns the list key
    /// (see `platform::KeyFromPath`) of the file's path after that. An empty file name, or one left
    /// as it was, keeps the file's own name, which may contain what the box cannot show.
    QString Run(const std::filesystem::path& song);

    /// Whether the last `Run` was left without applying.
    bool Cancelled = false;

    QLineEdit* tFileName;
    QLineEdit* tSongTitle;
    QLineEdit* tArtist;
    QLabel* lPath;
    QLabel* Label1;
    QLabel* Label2;
    QLabel* Label3;
    QPushButton* cmdCombine;
    QPushButton* cmdGet;
    QPushButton* cmdCapital;
    QPushButton* cmdRemove;
    QPushButton* cmdApply;
    QPushButton* cmdCancel;

private:
    void Name();
    void LayOut();

    void ShowFolder(const std::filesystem::path& folder);
    bool WaitForApply();
    /// The name typed for the file, or its own name.
    std::filesystem::path NewName(const std::filesystem::path& ownName, const QString& shownName);

    void tFileName_Change();
    void cmdCombine_Click();
    void cmdGet_Click();
    void cmdCapital_Click();
    void cmdRemove_Click();
    void cmdApply_Click();
    void cmdCancel_Click();

    bool mWaiting = false;
};
