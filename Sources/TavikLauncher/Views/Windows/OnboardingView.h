// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QPushButton;

namespace Tavik {

struct HotKeyConfig;
struct TourRow;

/// The content of the first-run window: what the launcher is, in four rows, and the ways on. Its
/// texts are those of the shortcut it is made with. The trigger works while it is open.
class OnboardingView final : public QWidget
{
    Q_OBJECT

public:
    struct Actions
    {
        std::function<void()> onFinish;
        std::function<void()> onOpenSettings;
    };

    OnboardingView(const HotKeyConfig& hotKey, Actions actions, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QLayout* makeHeader();
    [[nodiscard]] QLayout* makeRow(const TourRow& row, const QStringList& keys);
    [[nodiscard]] QLayout* makeButtons(const HotKeyConfig& hotKey);

    Actions m_actions;
    QPushButton* m_start = nullptr;
};

} // namespace Tavik
