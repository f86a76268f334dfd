#include "toolkit/FileDialog.h"

#include "toolkit/OddNames.h"

#include <QDir>
#include <QEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>
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

} // namespace

FileDialog::FileDialog(QWidget* owner, const QString& title, const QString& folder,
                       const QString& filter)
    : QFileDialog(owner, title, folder, filter) {
    setOption(DontUseNativeDialog);
    // While the completer's list is open and folders are still being read, Qt overwrites what is
    // being typed with rows that it has selected.
    findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setCompleter(nullptr);
    auto* files = findChild<QTreeView*>(QStringLiteral("treeView"));
    constexpr int kSize = 1;
    constexpr int kTime = 3;
    for (const int column : {kSize, kTime})
        files->setItemDelegateForColumn(column, new PlainDigits(this));
}

QStringList FileDialog::Choose() {
    if (acceptMode() == AcceptOpen)
        mOddNames = new OddNames(*this);
    if (exec() != Accepted)
        return {};
    if (OddNameChosen())
        return {mOddNames->Chosen()};
    QStringList paths = selectedFiles();
    for (QString& path : paths)
        path = QDir::toNativeSeparators(QDir::cleanPath(path));
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
    else if (MayBeChosen())
        QFileDialog::accept();
}

bool FileDialog::OddNameChosen() const {
    return mOddNames != nullptr && !mOddNames->Chosen().isEmpty();
}

} // namespace toolkit
