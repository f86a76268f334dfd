#include "toolkit/OddNames.h"

#include "platform/Aside.h"
#include "platform/Text.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QUrl>
#include <memory>

namespace toolkit {

namespace fs = std::filesystem;

namespace {

/// The one file in a folder whose name becomes `name` when it is taken for valid UTF-8; empty if
/// there are none or several.
fs::path OnlyLookalike(const fs::path& folder, const fs::path& name) {
    const QString wanted = platform::TextFromPath(name);
    fs::path found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path file = entry->path().filename();
        if (QString::fromStdString(file.string()) != wanted)
            continue;
        if (!found.empty())
            return {};
        found = file;
    }
    return found;
}

/// The files, or folders, in a folder whose names are not valid text.
std::vector<fs::path> OddOnes(const fs::path& folder, bool folders) {
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code ignored;
        if (!platform::TextFromPath(entry->path()).isValidUtf16() &&
            entry->is_directory(ignored) == folders)
            found.push_back(entry->path());
    }
    return found;
}

} // namespace

OddNames::OddNames(QFileDialog& dialog)
    : mDialog(dialog), mCaption(new QLabel(QStringLiteral("Names that are no valid text:"))) {
    constexpr int kHeight = 60;
    setObjectName(QStringLiteral("OddNames"));
    setAccessibleName(mCaption->text());
    setFixedHeight(kHeight);
    auto* layout = qobject_cast<QGridLayout*>(dialog.layout());
    for (QWidget* row : {static_cast<QWidget*>(mCaption), static_cast<QWidget*>(this)})
        layout->addWidget(row, layout->rowCount(), 0, 1, layout->columnCount());
    connect(&dialog, &QFileDialog::directoryEntered, this, &OddNames::Fill);
    // What is chosen in the dialog itself later counts instead.
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    connect(name, &QLineEdit::textEdited, this, &QListWidget::clearSelection);
    for (auto* view : dialog.findChildren<QAbstractItemView*>())
        if (view != this)
            connect(view, &QAbstractItemView::pressed, this, &QListWidget::clearSelection);
    connect(&dialog, &QFileDialog::currentChanged, this, &QListWidget::clearSelection);
    connect(this, &QListWidget::itemActivated, &dialog, &QDialog::accept);
    connect(this, &QListWidget::itemSelectionChanged, &dialog, [this, name] {
        if (Chosen().isEmpty())
            return;
        name->clear();
        for (auto* box : mDialog.findChildren<QDialogButtonBox*>())
            box->buttons().constFirst()->setEnabled(true); // the dialog knows of no choice
    });
    Fill(dialog.directory().path());
}

QString OddNames::Chosen() const {
    const QList<QListWidgetItem*> items = selectedItems();
    return items.isEmpty() ? QString() : items.constFirst()->data(Qt::UserRole).toString();
}

void OddNames::Fill(const QString& folder) {
    mFolder = folder;
    Offer({});
    const bool folders = mDialog.fileMode() == QFileDialog::Directory;
    const auto found = std::make_shared<std::vector<fs::path>>();
    platform::DoAside(
        this,
        [found, folder, folders] { *found = OddOnes(platform::PathFromText(folder), folders); },
        [this, found, folder] {
            if (folder == mFolder)
                Offer(*found);
        });
}

void OddNames::Offer(const std::vector<fs::path>& files) {
    clear();
    const bool folders = mDialog.fileMode() == QFileDialog::Directory;
    for (const fs::path& file : files) {
        const QString name = platform::ShownText(file.filename());
        if (!folders && !Matches(name))
            continue;
        auto* item = new QListWidgetItem(name, this);
        item->setData(Qt::UserRole, platform::TextFromPath(file));
    }
    setVisible(count() > 0);
    mCaption->setVisible(count() > 0);
}

bool OddNames::Matches(const QString& name) const {
    const QString filter = mDialog.selectedNameFilter();
    const QString patterns = filter.mid(filter.lastIndexOf(u'(') + 1).chopped(1);
    return QDir::match(patterns.split(u' '), name);
}

QString PathOfAnswer(const QUrl& answer) {
    fs::path path;
    for (const fs::path& name : platform::PathFromText(QDir::cleanPath(answer.toLocalFile()))) {
        const fs::path lookalike =
            platform::TextFromPath(name).contains(QChar::ReplacementCharacter)
                ? OnlyLookalike(path, name)
                : fs::path();
        path /= lookalike.empty() ? name : lookalike;
    }
    return platform::TextFromPath(path);
}

} // namespace toolkit
