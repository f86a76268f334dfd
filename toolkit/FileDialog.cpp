#include "toolkit/FileDialog.h"

#include "platform/GtkMessages.h"
#include "platform/Wait.h"
#include "toolkit/OddNames.h"
#include "toolkit/Place.h"
#include "toolkit/SideBar.h"

#include <QDir>
#include <QEvent>
#include <QFileIconProvider>
#include <QLineEdit>
#include <QMimeDatabase>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QTreeView>
#include <algorithm>

namespace toolkit {

namespace {

/// Qt writes the sizes and times of files with the digits of the system's locale.
class PlainDigits : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale& locale) const override {
        QString text = QStyledItemDelegate::displayText(value, locale);
        std::transform(text.begin(), text.end(), text.begin(), [](QChar sign) {
            return sign.isDigit() ? QChar(u'0' + sign.digitValue()) : sign;
        });
        return text;
    }
};

/// Tells types of files by their names. Qt's own provider reads the files, even on the window's
/// thread.
class TypesByName : public QFileIconProvider {
public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override {
        const QIcon ofType = file.isFile() ? QIcon::fromTheme(TypeOf(file).iconName()) : QIcon();
        return ofType.isNull() ? QFileIconProvider::icon(file) : ofType;
    }
    QString type(const QFileInfo& file) const override {
        return file.isFile() ? TypeOf(file).comment() : QFileIconProvider::type(file);
    }

private:
    static QMimeType TypeOf(const QFileInfo& file) {
        return QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension);
    }
};

/// "*.mp3 *.mp3 ...": every way to write one or more patterns, for dialogs that tell capitals from
/// small letters.
QString InAllCases(const QString& patterns) {
    const QStringList several = patterns.split(u' ');
    if (several.size() > 1) {
        QStringList all;
        std::transform(several.begin(), several.end(), std::back_inserter(all), InAllCases);
        return all.join(u' ');
    }
    QStringList ways{QString()};
    for (const QChar sign : patterns) {
        QStringList longer;
        for (const QString& way : ways) {
            longer << way + sign.toLower();
            if (sign.isLetter())
                longer << way + sign.toUpper();
        }
        ways = longer;
    }
    return ways.join(u' ');
}

} // namespace

FileDialog::FileDialog(QWidget* owner, const QString& title, const QString& folder)
    : QFileDialog(owner, title, folder), mSideBar(sidebarUrls()), mViewMode(viewMode()) {
    setModal(true);
    auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    mIsQts = name != nullptr;
    if (!mIsQts)
        return;
    static auto* const types = new TypesByName; // Qt's threads use it to the end
    setIconProvider(types);
    // While the completer's list is open and folders are still being read, Qt overwrites what is
    // being typed with rows that it has selected.
    name->setCompleter(nullptr);
    auto* files = findChild<QTreeView*>(QStringLiteral("treeView"));
    constexpr int kSize = 1;
    constexpr int kTime = 3;
    for (const int column : {kSize, kTime})
        files->setItemDelegateForColumn(column, new PlainDigits(this));
    constexpr int kIcon = 16; // pixels; icons marked as links have no other size
    for (auto* view : findChildren<QAbstractItemView*>())
        view->setIconSize(QSize(kIcon, kIcon));
    FillSideBar(*this);
    constexpr QSize kShowsAllColumns(750, 460);
    resize((QSizeF(kShowsAllColumns) * StageScale()).toSize().boundedTo(screen()->availableSize()));
}

FileDialog::~FileDialog() {
    if (!mIsQts)
        return;
    // Restored, because Qt stores them for the dialogs of all programs.
    setSidebarUrls(mSideBar);
    if (fileMode() == Directory)
        setViewMode(mViewMode);
}

void FileDialog::OfferFiles(const QString& description, const QString& patterns) {
    setNameFilter(
        QStringLiteral("%1 (%2)").arg(description, mIsQts ? patterns : InAllCases(patterns)));
}

void FileDialog::OfferFolders() {
    setFileMode(Directory);
    setOption(ShowDirsOnly);
    if (!mIsQts)
        return;
    setViewMode(List);
    for (const char* clutter :
         {"fileTypeLabel", "fileTypeCombo", "listModeButton", "detailModeButton"})
        findChild<QWidget*>(QLatin1String(clutter))->hide();
}

QStringList FileDialog::Choose() {
    if (mIsQts && acceptMode() == AcceptOpen)
        mOddNames = new OddNames(*this);
    // Without a name GTK would offer to replace the first file of the folder.
    const bool isGtks = !mIsQts && !IsPortals();
    if (acceptMode() == AcceptSave && (isGtks || !mName.isEmpty()))
        selectFile(directory().path() + u'/' + mName);
    for (;;) {
        Wait();
        const QStringList paths = result() == Accepted ? Answer() : QStringList();
        if (paths.isEmpty() || Takes(paths.front()))
            return paths;
        if (platform::Quitting())
            return {};
        selectFile(paths.front());
    }
}

/// Not by `exec`: the wait of a desktop's dialog would not end when the program is asked to quit.
void FileDialog::Wait() {
    QTimer watch; // it runs on while a message of GTK's waits
    connect(&watch, &QTimer::timeout, this, [] {
        if (platform::Quitting())
            platform::CloseGtkMessages();
    });
    if (!mIsQts)
        watch.start(500);
    setResult(Rejected);
    show();
    platform::WaitWhile([this] { return isVisible(); });
    hide();
}

QStringList FileDialog::Answer() const {
    if (OddNameChosen())
        return {mOddNames->Chosen()};
    QStringList paths;
    for (const QUrl& file : selectedUrls())
        paths << PathOfAnswer(file);
    return paths;
}

bool FileDialog::event(QEvent* event) {
    const bool known = QFileDialog::event(event);
    if (event->type() == QEvent::WindowUnblocked && isVisible())
        activateWindow(); // as `Form` does
    return known;
}

void FileDialog::accept() {
    if (OddNameChosen())
        done(Accepted); // the name would not pass Qt's own checks
    else
        QFileDialog::accept();
}

bool FileDialog::IsPortals() const {
    // The same conditions as in Qt, which chooses the portal by them.
    return !mIsQts &&
           (qEnvironmentVariable("QT_QPA_PLATFORMTHEME") == QStringLiteral("xdgdesktopportal") ||
            QFile::exists(QStringLiteral("/.flatpak-info")) || qEnvironmentVariableIsSet("SNAP"));
}

bool FileDialog::OddNameChosen() const {
    return mOddNames != nullptr && !mOddNames->Chosen().isEmpty();
}

} // namespace toolkit
