#include "editor/ColumnSettings.h"

#include "platform/Settings.h"
#include "toolkit/c_PicList.h"

#include <QStringList>

namespace editor {

namespace {

const QString kApplication = QStringLiteral("Songrush");
const QString kSection = QStringLiteral("Editor");
const QString kKey = QStringLiteral("Columns");

std::vector<int> LastWidths() {
    std::vector<int> widths;
    const QString numbers = platform::ReadSetting(kApplication, kSection, kKey, QString());
    for (const QString& number : numbers.split(u' '))
        widths.push_back(number.toInt());
    return widths;
}

void KeepWidths(const std::vector<int>& widths) {
    QStringList numbers;
    for (const int width : widths)
        numbers << QString::number(width);
    platform::WriteSetting(kApplication, kSection, kKey, numbers.join(u' '));
}

} // namespace

void RememberColumns(c_PicList& list) {
    list.SetColumnWidths(LastWidths());
    QObject::connect(&list, &c_PicList::ColumnsResized,
                     [&list] { KeepWidths(list.ColumnWidths()); });
}

} // namespace editor
