// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/Symbol.h>
#include <TavikLauncher/Views/Windows/AccessibilityPermissionSession.h>

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace Tavik {

class Button;
class DesktopAppearance;
class SettingsDiagram;

/// The window that asks for the permission to watch the keyboard: why it is needed, the way to the
/// switch, and, once it is on, that the trigger works. Made anew each time it is opened.
class AccessibilityPermissionView final : public QWidget
{
    Q_OBJECT

public:
    struct Dependencies
    {
        AccessibilityPermission& permission;
        MainQueue& mainQueue;
        const DesktopAppearance& appearance;
    };

    AccessibilityPermissionView(const Dependencies& dependencies,
                                AccessibilityPermissionSession::Actions actions,
                                QWidget* parent = nullptr);

    [[nodiscard]] AccessibilityPermissionSession& session() { return m_session; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    class Badge;
    class Divider;
    QLayout* makeHead();
    QLayout* makeControls();
    void tie(Button& button, void (AccessibilityPermissionSession::*action)());
    /// Goes over to what the session says now.
    void changePhase();
    void showPhase();
    /// What Return presses; null where there is nothing left to choose.
    [[nodiscard]] Button* defaultButton() const;
    /// Whether the way to the settings is replaced by the command.
    [[nodiscard]] bool givesCommand() const;

    Dependencies m_dependencies;
    AccessibilityPermissionSession m_session;
    Badge* m_badge = nullptr;
    QLabel* m_title = nullptr;
    QLabel* m_text = nullptr;
    QLabel* m_limit = nullptr;
    QLabel* m_remedy = nullptr;
    SettingsDiagram* m_diagram = nullptr;
    Divider* m_divider = nullptr;
    QLabel* m_instruction = nullptr;
    QWidget* m_hint = nullptr;
    Button* m_enable = nullptr;
    Button* m_openSettings = nullptr;
    Button* m_done = nullptr;
    Button* m_skip = nullptr;
};

} // namespace Tavik
