#include "toolkit/FileDialog.h"

#include "platform/Message.h"
#include "toolkit/OddNames.h"

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
    if (acceptMode() == AcceptOpen)
        mOddNames = new OddNames(*this);
    platform::PlaceDialog(*this);
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
        activateWindow(); // as a form does
    return known;
}

void FileDialog::accept() {
    if (OddNameChosen())
        done(Accepted); // the name would not pass Qt's own tests
    else if (MayBeChosen())
        QFileDialog::accept();
}

bool FileDialog::OddNameChosen() const {
    return mOddNames != nullptr && !mOddNames->Chosen().isEmpty();
}

} // namespace toolkit
