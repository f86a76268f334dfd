#include "toolkit/SideBar.h"

#include "platform/ProgramFolder.h"
#include "platform/Text.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QStyledItemDelegate>
#include <QUrl>

namespace toolkit {

namespace {

/// Two of the folders have the same name: they are shown, and read out, by what they are for.
class Names : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = index.data(Qt::AccessibleTextRole).toString();
    }
};

} // namespace

void FillSideBar(QFileDialog& dialog) {
    const std::pair<std::filesystem::path, QString> places[] = {
        {platform::MusicFolder(), QStringLiteral("Music")},
        {platform::ProgramFolder() / "Music", QStringLiteral("Sample songs")},
        {platform::ProgramFolder() / "PlayList", QStringLiteral("Playlists")},
        {platform::HomeFolder(), QStringLiteral("Home")},
        {platform::RootFolder(), QStringLiteral("File system")}};
    QList<QUrl> urls;
    QStringList names;
    std::error_code error;
    for (const auto& [folder, name] : places) {
        const QUrl url = QUrl::fromLocalFile(platform::TextFromPath(folder));
        if (!std::filesystem::is_directory(folder, error) || urls.contains(url))
            continue;
        urls << url;
        names << name;
    }
    dialog.setSidebarUrls(urls);
    auto* bar = dialog.findChild<QAbstractItemView*>(QStringLiteral("sidebar"));
    bar->setItemDelegate(new Names(bar));
    for (int row = 0; row < names.size(); ++row)
        bar->model()->setData(bar->model()->index(row, 0), names[row], Qt::AccessibleTextRole);
    bar->setMinimumWidth(bar->sizeHintForColumn(0) + 2 * bar->frameWidth());
}

} // namespace toolkit
