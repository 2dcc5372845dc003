// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Look/Button.h>
#include <TavikLauncher/Look/OutcomeMessage.h>
#include <TavikLauncher/Look/TextField.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Views/SettingsWindow/AppListModel.h>
#include <TavikLauncher/Views/SettingsWindow/AppListView.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPage.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsPages.h>
#include <TavikLauncherPlatform/FileManager.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QSet>
#include <QVBoxLayout>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostResults = 40;

/// The permanent applications in the ring's order, with ways to add, remove and move them.
class PermanentAppsPage final : public SettingsPage
{
public:
    explicit PermanentAppsPage(const SettingsDependencies& dependencies)
        : SettingsPage(
            dependencies,
            Texts::tr("Permanent Apps"),
            Texts::tr("Always on the ring, clockwise from the top, whether they run or not."))
        , m_icons(dependencies.iconDecoder, dependencies.workQueue)
        , m_apps(dependencies.catalog, dependencies.fileManager, this)
        , m_results(dependencies.catalog, dependencies.fileManager, this)
    {
        Card& adding = addCard(Texts::tr("Add"));
        adding.addWidget(makeSearch());
        m_resultList
            = new AppListView(m_icons,
                              {.form = AppListView::Form::pick,
                               .placeholder = Texts::tr("No application is called that.")});
        m_resultList->setObjectName(u"searchResults"_s);
        m_resultList->setModel(&m_results);
        m_resultList->setAccessibleName(Texts::tr("Applications found"));
        adding.addWidget(m_resultList);
        m_message = new OutcomeMessage(&adding);
        m_message->setObjectName(u"permanentAppsMessage"_s);
        adding.addWidget(m_message);

        Card& card = addCard(Texts::tr("On the ring"));
        m_appList = new AppListView(
            m_icons,
            {.form = AppListView::Form::reorder,
             .placeholder = Texts::tr("Nothing yet. Search above to add applications.")});
        m_appList->setObjectName(u"permanentAppPaths"_s);
        m_appList->setModel(&m_apps);
        card.addWidget(m_appList);
        describe(
            *m_appList,
            {.title = Texts::tr("Permanent applications"),
             .help = Texts::tr("Drag to change the order, or press Alt with an arrow key. Delete "
                               "removes.")});
        card.addWidget(makeToolbar());
        connectLists();
        whenBroughtBack([this] { lookAgain(); });
        follow({settings().permanentAppPaths.name(), settings().pinnedPermanentAppPaths.name()},
               [this] { refresh(); });
    }

private:
    QWidget* makeSearch()
    {
        auto* bar = new QWidget;
        auto* row = new QHBoxLayout(bar);
        row->setContentsMargins(12, 8, 12, 8);
        m_search = new TextField(LineSymbol::search, bar);
        m_search->setObjectName(u"applicationSearch"_s);
        m_search->setPlaceholderText(Texts::tr("Search"));
        m_search->setClearButtonEnabled(false);
        m_search->installEventFilter(this);
        describe(*m_search,
                 {.title = Texts::tr("Search applications"),
                  .help = Texts::tr("Type a name; Return adds the first application found.")});
        auto* add = new Button(Texts::tr("Add…"), bar);
        add->setObjectName(u"addApplication"_s);
        describe(*add,
                 {.title = Texts::tr("Add an application"),
                  .tooltip = Texts::tr("Choose an application that the search does not find.")});
        row->setSpacing(4);
        row->addWidget(m_search, 1);
        row->addWidget(add);
        connect(m_search, &QLineEdit::textChanged, this, [this] { refreshResults(); });
        connect(m_search, &QLineEdit::returnPressed, this, [this] { addResult(firstFree()); });
        connect(add, &QAbstractButton::clicked, this, [this] {
            askFor({.title = Texts::tr("Add an Application"),
                    .suggestedName = {},
                    .nameFilter = Texts::tr("Applications (*.desktop *.app)"),
                    .alsoTakesFolders = true});
        });
        return bar;
    }

    QWidget* makeToolbar()
    {
        auto* bar = new QWidget;
        auto* row = new QHBoxLayout(bar);
        row->setContentsMargins(12, 4, 12, 4);
        row->setSpacing(0);
        const auto add = [&](LineSymbol symbol, const RowText& text, const QString& name) {
            auto* button = new Button(symbol, bar);
            button->setObjectName(name);
            describe(*button, text);
            row->addWidget(button);
            return button;
        };
        m_up = add(LineSymbol::up,
                   {.title = Texts::tr("Move Up"), .tooltip = Texts::tr("Move up")},
                   u"moveUp"_s);
        m_down = add(LineSymbol::down,
                     {.title = Texts::tr("Move Down"), .tooltip = Texts::tr("Move down")},
                     u"moveDown"_s);
        row->addStretch();
        m_remove = new Button(Texts::tr("Remove"), bar);
        m_remove->setObjectName(u"removeApp"_s);
        describe(*m_remove,
                 {.title = Texts::tr("Remove"),
                  .tooltip = Texts::tr("Take the selected application off the ring.")});
        row->addWidget(m_remove);
        connect(m_up, &QAbstractButton::clicked, this, [this] {
            move(selectedRow(), selectedRow() - 1);
        });
        connect(m_down, &QAbstractButton::clicked, this, [this] {
            move(selectedRow(), selectedRow() + 1);
        });
        connect(m_remove, &QAbstractButton::clicked, this, [this] { remove(selectedRow()); });
        return bar;
    }

    void connectLists()
    {
        connect(m_appList, &AppListView::moveRequested, this, &PermanentAppsPage::move);
        connect(m_appList, &AppListView::dragCancelled, this, &PermanentAppsPage::move);
        connect(m_appList, &AppListView::removeRequested, this, &PermanentAppsPage::remove);
        connect(m_appList->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
            refreshToolbar();
        });
        connect(m_resultList, &AppListView::picked, this, &PermanentAppsPage::addResult);
        connect(&dependencies().catalog, &AppCatalog::appsChanged, this, [this] {
            lookAgain();
            refreshResults();
        });
        connect(&dependencies().catalog,
                &AppCatalog::foldersChanged,
                &m_icons,
                &AppIconCache::invalidate);
    }

    /// Applications come and go; of those outside the catalog's folders nobody tells.
    void lookAgain()
    {
        m_apps.forgetEntries();
        m_results.forgetEntries();
    }

    [[nodiscard]] int selectedRow() const { return m_appList->currentIndex().row(); }

    /// The ring's order, and after it what has no place in it yet.
    [[nodiscard]] QStringList shownPaths() const
    {
        QStringList paths = settings().effectivePinnedAppPaths();
        QSet<QString> known(paths.begin(), paths.end());
        for (const QString& path : settings().permanentAppPaths()) {
            if (!known.contains(path)) {
                known.insert(path);
                paths.append(path);
            }
        }
        paths.removeDuplicates();
        return paths;
    }

    void refresh()
    {
        const QString current = m_appList->currentIndex().data(AppListModel::pathRole).toString();
        const int row = selectedRow();
        const QStringList paths = shownPaths();
        if (paths != m_apps.paths()) {
            m_apps.setPaths(paths);
            const auto place = static_cast<int>(paths.indexOf(current));
            const int last = static_cast<int>(paths.size()) - 1;
            const int wanted = place >= 0 ? place : std::min(row, last);
            if (wanted >= 0) {
                m_appList->setCurrentIndex(m_apps.index(wanted));
            }
        }
        refreshToolbar();
        refreshResults();
    }

    void refreshToolbar()
    {
        const int row = selectedRow();
        m_up->setAvailable(row > 0);
        m_down->setAvailable(row >= 0 && row + 1 < m_apps.rowCount());
        m_remove->setAvailable(row >= 0);
    }

    void refreshResults()
    {
        const QString query = m_search->text().trimmed();
        m_resultList->setVisible(!query.isEmpty());
        QStringList paths;
        if (!query.isEmpty()) {
            const QStringList& permanent = settings().permanentAppPaths();
            const QSet<QString> known(permanent.begin(), permanent.end());
            for (const IndexedApp& app : dependencies().catalog.results(query, mostResults)) {
                paths.append(app.path());
            }
            m_results.setTaken(known);
            m_message->clear();
        }
        m_results.setPaths(paths);
    }

    /// The first result that is not on the ring yet; -1 without one.
    [[nodiscard]] int firstFree() const
    {
        const QStringList& permanent = settings().permanentAppPaths();
        const auto& paths = m_results.paths();
        const auto found = std::ranges::find_if(
            paths, [&](const QString& path) { return !permanent.contains(path); });
        return found == paths.end() ? -1 : static_cast<int>(found - paths.begin());
    }

    void addResult(int row)
    {
        if (row < 0 || row >= m_results.rowCount()) {
            return;
        }
        const QString path = m_results.paths().at(row);
        if (!settings().permanentAppPaths().contains(path)) {
            add(path);
        }
    }

    void add(const QString& path)
    {
        settings().addPermanentApp(path);
        m_search->clear();
        const auto row = static_cast<int>(m_apps.paths().indexOf(path));
        m_appList->setCurrentIndex(m_apps.index(row));
    }

    void askFor(const FileRequest& request)
    {
        dependencies().openFile(request, [page = QPointer(this)](const QString& path) {
            if (page) {
                page->addFile(QDir::cleanPath(path));
            }
        });
    }

    void addFile(const QString& path)
    {
        if (dependencies().fileManager.isApplicationBundle(path)) {
            m_message->clear();
            add(path);
        } else {
            m_message->say(OutcomeMessage::Kind::warning,
                           Texts::tr("%1 is not an application.").arg(QFileInfo(path).fileName()));
        }
    }

    void remove(int row)
    {
        if (row >= 0) {
            settings().removePermanentApps({m_apps.paths().at(row)});
        }
    }

    void move(int from, int to)
    {
        if (from < 0 || to < 0 || to >= m_apps.rowCount() || from == to) {
            return;
        }
        m_apps.move(from, to);
        // What is pinned without being permanent keeps its record, behind the others.
        QStringList pinned = m_apps.paths();
        const QSet<QString> shown(pinned.begin(), pinned.end());
        for (const QString& path : settings().pinnedPermanentAppPaths()) {
            if (!shown.contains(path)) {
                pinned.append(path);
            }
        }
        settings().pinnedPermanentAppPaths.set(pinned);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == m_search && event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Down && m_results.rowCount() > 0) {
                m_resultList->setFocus(Qt::TabFocusReason);
                return true;
            }
            if (key == Qt::Key_Escape && !m_search->text().isEmpty()) {
                m_search->clear();
                return true;
            }
        }
        return SettingsPage::eventFilter(watched, event);
    }

    AppIconCache m_icons;
    AppListModel m_apps;
    AppListModel m_results;
    TextField* m_search = nullptr;
    AppListView* m_resultList = nullptr;
    AppListView* m_appList = nullptr;
    OutcomeMessage* m_message = nullptr;
    Button* m_up = nullptr;
    Button* m_down = nullptr;
    Button* m_remove = nullptr;
};

} // namespace

std::unique_ptr<SettingsPage>
SettingsPages::makePermanentApps(const SettingsDependencies& dependencies)
{
    return std::make_unique<PermanentAppsPage>(dependencies);
}

} // namespace Tavik
