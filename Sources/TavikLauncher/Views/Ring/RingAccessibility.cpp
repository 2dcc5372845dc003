// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Announcement.h>
#include <TavikLauncher/Views/Ring/FilterField.h>
#include <TavikLauncher/Views/Ring/RadialLauncherView.h>
#include <TavikLauncher/Views/Ring/RingAccessibility.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleWidget>
#include <QEvent>

#include <algorithm>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace Tavik::RingAccessibility {

using namespace Qt::StringLiterals;

namespace {

/// A part of the ring that is no widget: it lives as long as the ring's own interface.
class RingPart : public QAccessibleInterface
{
public:
    RingPart(RadialLauncherView& view, QAccessibleInterface& ring)
        : m_view(view)
        , m_ring(ring)
    { }

    [[nodiscard]] bool isValid() const override { return m_ring.isValid(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return m_ring.window(); }
    [[nodiscard]] QAccessibleInterface* parent() const override { return &m_ring; }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    void setText(QAccessible::Text, const QString&) override { }

protected:
    [[nodiscard]] RadialLauncherView& view() const { return m_view; }
    [[nodiscard]] QRect onScreen(const QRect& rect) const
    {
        return {m_view.mapToGlobal(rect.topLeft()), rect.size()};
    }

private:
    RadialLauncherView& m_view;
    QAccessibleInterface& m_ring;
};

/// Whether what is said of the ring is about where the keyboard is: beside the settings the ring is
/// only seen.
bool hasKeyboard(RadialLauncherView& view)
{
    return view.isVisible() && view.filterField().hasFocus();
}

/// An application's button. It goes with the application and not with the slot, because a reader
/// says nothing when the focus stays on the object that it spoke of last. One that has left the
/// ring still answers, as a reader asks what has lost the focus.
class AppButton final : public RingPart, public QAccessibleActionInterface
{
public:
    AppButton(RadialLauncherView& view, QAccessibleInterface& ring, IndexedApp app)
        : RingPart(view, ring)
        , m_app(std::move(app))
    { }

    void update(const IndexedApp& app) { m_app = app; }

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::PushButton; }
    [[nodiscard]] QRect rect() const override
    {
        const int at = slot();
        return at < 0 ? QRect() : onScreen(view().slotRect(at));
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name) {
            return m_app.name();
        }
        return kind == QAccessible::Description ? description() : QString();
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        const int at = slot();
        QAccessible::State state;
        state.selectable = true;
        state.focusable = true;
        state.invisible = at < 0 || !view().isVisible();
        state.selected = at >= 0 && at == view().interaction().selectedIndex();
        state.focused = state.selected && hasKeyboard(view());
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override
    {
        const int at = slot();
        if (name == pressAction() && at >= 0) {
            view().interaction().clickSlot(at);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    /// As in "running, 3 of 15".
    [[nodiscard]] QString description() const
    {
        const int at = slot();
        if (at < 0) {
            return {};
        }
        const RingInteraction& ring = view().interaction();
        QStringList parts;
        if (ring.isRunning(m_app)) {
            parts << Texts::tr("running");
        } else if (ring.isStarting(m_app)) {
            parts << Texts::tr("starting");
        }
        parts << Texts::tr("%1 of %2").arg(at + 1).arg(ring.ringApps().size());
        return parts.join(u", "_s);
    }
    /// Where the application is now; -1 when it is not on the ring.
    [[nodiscard]] int slot() const
    {
        const QList<IndexedApp>& apps = view().interaction().ringApps();
        const auto found = std::ranges::find(apps, m_app.id(), &IndexedApp::id);
        return found == apps.end() ? -1 : static_cast<int>(found - apps.begin());
    }

    IndexedApp m_app;
};

/// One of the texts that are painted in the centre.
class CenterText final : public RingPart
{
public:
    using Text = std::function<QString(const RingCenter&)>;

    CenterText(RadialLauncherView& view, QAccessibleInterface& ring, Text text)
        : RingPart(view, ring)
        , m_text(std::move(text))
    { }

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::StaticText; }
    [[nodiscard]] QRect rect() const override { return onScreen(view().filterField().geometry()); }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_text(view().scene().center) : QString();
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.readOnly = true;
        state.invisible = !view().isVisible() || text(QAccessible::Name).isEmpty();
        return state;
    }

private:
    Text m_text;
};

class RingInterface final : public QAccessibleWidget
{
public:
    explicit RingInterface(RadialLauncherView* view)
        : QAccessibleWidget(view, QAccessible::Grouping)
        , m_view(*view)
    {
        addText([](const RingCenter& center) { return center.indicator; });
        addText([](const RingCenter& center) { return center.selectedName; });
        addText([](const RingCenter& center) { return center.message; });
        addText([](const RingCenter& center) { return center.launchHint; });
    }
    ~RingInterface() override
    {
        for (const QAccessible::Id id : m_texts) {
            QAccessible::deleteAccessibleInterface(id);
        }
        for (const auto& [app, id] : m_buttons) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }
    RingInterface(const RingInterface&) = delete;
    RingInterface& operator=(const RingInterface&) = delete;

    /// The field, then the centre's texts, then the slots.
    [[nodiscard]] int childCount() const override { return firstSlot() + slotCount(); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        if (index == 0) {
            return QAccessible::queryAccessibleInterface(&m_view.filterField());
        }
        if (index < firstSlot()) {
            return QAccessible::accessibleInterface(
                m_texts.at(static_cast<std::size_t>(index - 1)));
        }
        return slotInterface(index - firstSlot());
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* wanted) const override
    {
        for (int index = 0; index < childCount(); ++index) {
            if (child(index) == wanted) {
                return index;
            }
        }
        return -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        for (int index = 0; index < childCount(); ++index) {
            if (child(index)->rect().contains(x, y)) {
                return child(index);
            }
        }
        return nullptr;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        const int selected = m_view.interaction().selectedIndex();
        return hasKeyboard(m_view) && selected < slotCount() ? slotInterface(selected) : nullptr;
    }

private:
    void addText(CenterText::Text text)
    {
        m_texts.push_back(QAccessible::registerAccessibleInterface(
            new CenterText(m_view, *this, std::move(text))));
    }
    [[nodiscard]] int slotCount() const
    {
        return static_cast<int>(m_view.interaction().ringApps().size());
    }
    [[nodiscard]] int firstSlot() const { return 1 + static_cast<int>(m_texts.size()); }
    [[nodiscard]] QAccessibleInterface* slotInterface(int slot) const
    {
        const IndexedApp& app = m_view.interaction().ringApps().at(slot);
        const auto found = m_buttons.find(app.id());
        if (found != m_buttons.end()) {
            QAccessibleInterface* known = QAccessible::accessibleInterface(found->second);
            static_cast<AppButton*>(known)->update(app);
            return known;
        }
        auto* made = new AppButton(m_view, const_cast<RingInterface&>(*this), app);
        m_buttons.emplace(app.id(), QAccessible::registerAccessibleInterface(made));
        return made;
    }

    RadialLauncherView& m_view;
    std::vector<QAccessible::Id> m_texts;
    mutable std::map<QString, QAccessible::Id> m_buttons; ///< By the application's identity.
};

/// Tells assistive technology what has changed while the ring is shown.
class RingSpeaker final : public QObject
{
public:
    explicit RingSpeaker(RadialLauncherView& view)
        : QObject(&view)
        , m_view(view)
        , m_results(view)
    {
        connect(&view, &RadialLauncherView::selectionChanged, this, &RingSpeaker::tellOfSelected);
        connect(&view, &RadialLauncherView::slotsChanged, this, &RingSpeaker::tellOfSlots);
        connect(&view.interaction(), &RingInteraction::centerChanged, this, [this] {
            // That nothing matches is known when there is no more being looked. What is on the ring
            // follows the query a moment later.
            if (m_view.interaction().ringApps().isEmpty()) {
                tellOfResults();
            }
        });
        view.filterField().installEventFilter(this);
        tellSoon(); // Of a ring that has been open since before somebody listened.
    }

protected:
    bool eventFilter(QObject* field, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn) {
            m_toldApp.clear();
            tellSoon();
        }
        return QObject::eventFilter(field, event);
    }

private:
    /// After the toolkit has told of the field, which it does when the field has the focus.
    void tellSoon()
    {
        QMetaObject::invokeMethod(this, &RingSpeaker::tellOfSelected, Qt::QueuedConnection);
    }
    void tellOfSelected()
    {
        QAccessibleInterface* ring = QAccessible::isActive() && hasKeyboard(m_view)
            ? QAccessible::queryAccessibleInterface(&m_view)
            : nullptr;
        QAccessibleInterface* selected = ring ? ring->focusChild() : nullptr;
        if (!selected) {
            return;
        }
        const RingInteraction& interaction = m_view.interaction();
        const QString& app = interaction.ringApps().at(interaction.selectedIndex()).id();
        if (std::exchange(m_toldApp, app) != app) {
            QAccessibleEvent event(selected, QAccessible::Focus);
            QAccessible::updateAccessibility(&event);
            m_toldResults = resultsOfFilter(); // As in "1 of 2".
        }
    }
    void tellOfSlots()
    {
        if (!QAccessible::isActive()) {
            return;
        }
        QAccessibleEvent event(&m_view, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&event);
        tellOfSelected();
        tellOfResults();
    }
    void tellOfResults()
    {
        const QString results = resultsOfFilter();
        if (results == std::exchange(m_toldResults, results)) {
            return;
        }
        const RingInteraction& ring = m_view.interaction();
        if (!results.isEmpty()) {
            m_results.say(results);
        } else if (!ring.isFiltering() && !ring.ringApps().isEmpty() && hasKeyboard(m_view)) {
            // Without the filter the same application is selected: its focus is no news.
            m_results.say(ring.ringApps().at(ring.selectedIndex()).name());
        }
    }
    [[nodiscard]] QString resultsOfFilter() const
    {
        const RingInteraction& ring = m_view.interaction();
        const auto count = static_cast<int>(ring.ringApps().size());
        if (!m_view.isVisible() || !ring.isFiltering()) {
            return {};
        }
        if (count == 0) {
            return m_view.scene().center.message; // None while there is still being looked.
        }
        // What stands in the code has no forms for numbers.
        return count == 1 ? Texts::tr("1 match") : Texts::tr("%n matches", nullptr, count);
    }

    RadialLauncherView& m_view;
    Announcement m_results;
    QString m_toldApp; ///< The identity of the selected application that was spoken of last.
    QString m_toldResults;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* view = qobject_cast<RadialLauncherView*>(object);
    if (!view) {
        return nullptr;
    }
    new RingSpeaker(*view); // Which the view owns.
    return new RingInterface(view);
}

} // namespace

void install()
{
    QAccessible::installFactory(makeInterface);
}

} // namespace Tavik::RingAccessibility
