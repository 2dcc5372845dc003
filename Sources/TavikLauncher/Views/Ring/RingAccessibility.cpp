// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Announcement.h>
#include <TavikLauncher/Views/Ring/FilterField.h>
#include <TavikLauncher/Views/Ring/RadialLauncherView.h>
#include <TavikLauncher/Views/Ring/RingAccessibility.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleWidget>

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

class SlotButton final : public RingPart, public QAccessibleActionInterface
{
public:
    SlotButton(RadialLauncherView& view, QAccessibleInterface& ring, int slot)
        : RingPart(view, ring)
        , m_slot(slot)
    { }

    [[nodiscard]] bool isValid() const override { return RingPart::isValid() && app(); }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::PushButton; }
    [[nodiscard]] QRect rect() const override { return onScreen(view().slotRect(m_slot)); }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const IndexedApp* shown = app();
        if (!shown) {
            return {};
        }
        if (kind == QAccessible::Name) {
            return shown->name();
        }
        return kind == QAccessible::Description ? description(*shown) : QString();
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = true;
        state.focusable = true;
        state.invisible = !view().isVisible();
        state.selected = m_slot == view().interaction().selectedIndex();
        state.focused = state.selected && view().isVisible();
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
        if (name == pressAction() && app()) {
            view().interaction().clickSlot(m_slot);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    /// As in "running, 3 of 15".
    [[nodiscard]] QString description(const IndexedApp& shown) const
    {
        const RingInteraction& ring = view().interaction();
        QStringList parts;
        if (ring.isRunning(shown)) {
            parts << Texts::tr("running");
        } else if (ring.isStarting(shown)) {
            parts << Texts::tr("starting");
        }
        parts << Texts::tr("%1 of %2").arg(m_slot + 1).arg(ring.ringApps().size());
        return parts.join(u", "_s);
    }
    [[nodiscard]] const IndexedApp* app() const
    {
        const QList<IndexedApp>& apps = view().interaction().ringApps();
        return m_slot < apps.size() ? &apps.at(m_slot) : nullptr;
    }

    int m_slot;
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
        for (const auto& [slot, id] : m_slots) {
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
        return m_view.isVisible() && selected < slotCount() ? slotInterface(selected) : nullptr;
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
        const auto found = m_slots.find(slot);
        if (found != m_slots.end()) {
            return QAccessible::accessibleInterface(found->second);
        }
        auto* made = new SlotButton(m_view, const_cast<RingInterface&>(*this), slot);
        m_slots.emplace(slot, QAccessible::registerAccessibleInterface(made));
        return made;
    }

    RadialLauncherView& m_view;
    std::vector<QAccessible::Id> m_texts;
    mutable std::map<int, QAccessible::Id> m_slots;
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
        connect(&view, &RadialLauncherView::selectionChanged, this, [this] {
            tellOfSelected(QAccessible::Focus);
        });
        connect(&view, &RadialLauncherView::slotsChanged, this, &RingSpeaker::tellOfSlots);
    }

private:
    void tellOfSelected(QAccessible::Event kind)
    {
        QAccessibleInterface* ring = QAccessible::isActive() && m_view.isVisible()
            ? QAccessible::queryAccessibleInterface(&m_view)
            : nullptr;
        if (QAccessibleInterface* selected = ring ? ring->focusChild() : nullptr) {
            QAccessibleEvent event(selected, kind);
            QAccessible::updateAccessibility(&event);
        }
    }
    void tellOfSlots()
    {
        if (!QAccessible::isActive()) {
            return;
        }
        QAccessibleEvent event(&m_view, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&event);
        // The selected slot may be the same one, and have another application now.
        tellOfSelected(QAccessible::NameChanged);
        const QString results = resultsOfFilter();
        if (results != std::exchange(m_told, results) && !results.isEmpty()) {
            m_results.say(results);
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
    QString m_told;
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
