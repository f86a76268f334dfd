#include "toolkit/FileDialog.h"

#include "platform/Message.h"

#include <QDir>
#include <QEvent>
#include <QLineEdit>

namespace toolkit {

FileDialog::FileDialog(QWidget* owner, const QString& title, const QString& folder,
                       const QString& filter)
    : QFileDialog(owner, title, folder, filter) {
    setOption(DontUseNativeDialog);
    // While the completer's list is open and folders are still being read, Qt writes rows that it
    // has selected over what is being typed.
    findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setCompleter(nullptr);
}

QStringList FileDialog::Choose() {
    platform::PlaceDialog(*this);
    if (exec() != Accepted)
        return {};
    QStringList paths = selectedFiles();
    for (QString& path : paths)
        path = QDir::toNativeSeparators(QDir::cleanPath(path));
    return paths;
}

bool FileDialog::event(QEvent* event) {
    const bool known = QFileDialog::event(event);
    if (event->type() == QEvent::WindowUnblocked && isVisible())
        activateWindow(); // as a form does
    return known;
}

void FileDialog::accept() {
    if (MayBeChosen())
        QFileDialog::accept();
}

} // namespace toolkit
