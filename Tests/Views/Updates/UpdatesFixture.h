// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Updates/StandardUserDriver.h>
#include <TavikLauncher/Views/Updates/StandardUserDriverDelegate.h>
#include <TavikLauncher/Views/Updates/UpdateView.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QUrl>

#include <Support/FakeDesktop.h>
#include <Support/FakeWindowServer.h>
#include <Support/Hands.h>
#include <Support/Table.h>
#include <Support/VirtualMainQueue.h>
#include <algorithm>

namespace Tavik::Test {

using namespace Qt::StringLiterals;

/// A delegate that counts the alerts.
class FakeUserDriverDelegate final : public StandardUserDriverDelegate
{
public:
    [[nodiscard]] bool supportsGentleScheduledUpdateReminders() const override { return true; }
    [[nodiscard]] bool standardUserDriverShouldHandleShowingScheduledUpdate(const UpdateItem&,
                                                                            bool inFocus) override
    {
        wasInFocus = inFocus;
        return wantsShown;
    }
    void standardUserDriverWillHandleShowingUpdate(bool,
                                                   const UpdateItem&,
                                                   const UpdateUserState&) override
    { }
    void standardUserDriverDidReceiveUserAttention(const UpdateItem&) override { }
    void standardUserDriverWillFinishUpdateSession() override { }
    void standardUserDriverWillShowModalAlert() override { ++alerts; }

    bool wantsShown = false;
    std::optional<bool> wasInFocus; ///< As the delegate was told; absent when it was not asked.
    int alerts = 0;
};

/// A user driver, what it calls back, and eyes and hands for its windows.
struct UpdatesFixture
{
    [[nodiscard]] static UpdateItem item(const QString& notes = {})
    {
        UpdateItem item;
        if (!notes.isEmpty()) {
            item.releaseNotes = ReleaseNotes{.text = notes};
        }
        item.versionString = u"210"_s;
        item.displayVersionString = u"2.1"_s;
        return item;
    }

    void find(const UpdateItem& update = item(), bool userInitiated = true)
    {
        driver.showUpdateFound(
            update, {userInitiated}, [this](UpdateChoice choice) { replies.append(choice); });
    }

    /// The update windows that exist, shown or not.
    [[nodiscard]] static QList<UpdateWindow*> windows()
    {
        QList<UpdateWindow*> windows;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            windows << qobject_cast<UpdateWindow*>(widget);
        }
        windows.removeAll(nullptr);
        return windows;
    }
    [[nodiscard]] static int windowCount()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return static_cast<int>(windows().size());
    }
    /// The update window that is shown, or null.
    [[nodiscard]] static UpdateWindow* window()
    {
        const QList<UpdateWindow*> all = windows();
        const auto shown = std::ranges::find_if(all, &UpdateWindow::isVisible);
        return shown == all.end() ? nullptr : *shown;
    }
    /// What the visible labels say, from top to bottom.
    [[nodiscard]] static QStringList texts()
    {
        QStringList texts;
        for (const QLabel* label : visible<QLabel>(*window())) {
            texts << label->text();
        }
        texts.removeAll(QString());
        return texts;
    }
    /// The visible buttons from left to right.
    [[nodiscard]] static QList<QPushButton*> buttons()
    {
        QList<QPushButton*> buttons = visible<QPushButton>(*window());
        std::ranges::sort(buttons, {}, [](const QPushButton* button) { return button->x(); });
        return buttons;
    }
    static void click(const QString& text)
    {
        QVERIFY2(Test::click(*window(), text), qPrintable(u"no button "_s + text));
    }
    static void press(Qt::Key key)
    {
        QWidget* focused = window()->focusWidget();
        QTest::keyClick(focused ? focused : &window()->view(), key);
    }

    /// By the key or the button of that name, or else "close".
    static void leave(const QString& way)
    {
        if (way == u"close"_s) {
            window()->close();
        } else if (way == u"Escape"_s) {
            press(Qt::Key_Escape);
        } else {
            click(way);
        }
    }

    VirtualMainQueue mainQueue;
    FakeWindowServer windowServer;
    FakeAppearance appearance;
    FakeUserDriverDelegate delegate;
    bool isFocused = false; ///< The user is at one of our windows.
    QStringList opened;
    QList<UpdateChoice> replies;
    int answers = 0; ///< To whatever else was asked.
    StandardUserDriver driver{{mainQueue, windowServer, appearance, delegate},
                              {.ownVersion = u"2.0"_s,
                               .nothingNewTitle = u"Nothing."_s,
                               .isInImmediateFocus = [this] { return isFocused; },
                               .windowMade = [](AuxiliaryWindow&) {},
                               .openLink =
                                   [this](const QUrl& url) {
                                       opened << url.toString();
                                   }}};
};

} // namespace Tavik::Test
