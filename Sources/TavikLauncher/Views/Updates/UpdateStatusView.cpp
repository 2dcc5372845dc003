// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/UpdateProgressBar.h>
#include <TavikLauncher/Views/Updates/UpdateStatusView.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double usualWidth = 440;
/// Often enough to look alive, seldom enough to be read.
constexpr double refreshSeconds = 0.5;

QString dataSize(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

/// Calls a stage's closure, which may well replace the stage that holds it.
void call(const std::function<void()>& closure)
{
    if (const std::function<void()> copy = closure) {
        copy();
    }
}

} // namespace

UpdateStatusView::UpdateStatusView(MainQueue& mainQueue, const DesktopAppearance& appearance)
    : m_mainQueue(mainQueue)
{
    setFixedWidth(scaled(usualWidth));
    m_text = addText();
    column().addSpacing(4);
    m_bar = new UpdateProgressBar(mainQueue, appearance, this);
    m_bar->setAccessibleName(Texts::tr("Progress"));
    column().addWidget(m_bar);
    column().insertStretch(0, 1);
    column().addStretch(1);
    m_cancel = addButton(Texts::tr("Cancel"), Side::right, [this] { call(m_stage.cancel); });
    m_later = addButton(Texts::tr("Not Now"), Side::right, [this] { call(m_stage.later); });
    m_install = addButton(
        Texts::tr("Install and Relaunch"), Side::right, [this] { call(m_stage.install); });
}

void UpdateStatusView::show(Stage stage)
{
    m_stage = std::move(stage);
    followTransfer();
    setTitle(m_stage.title);
    m_text->setText(m_stage.text);
    m_text->setVisible(!m_stage.text.isEmpty());
    m_bar->setVisible(m_stage.isBusy);
    m_bar->setShare(-1);
    // The button that cannot be pressed keeps its place, so that the window keeps its size.
    m_cancel->setVisible(m_stage.isBusy);
    m_cancel->setEnabled(m_stage.cancel != nullptr);
    m_later->setVisible(m_stage.later != nullptr);
    m_install->setVisible(m_stage.install != nullptr);
    // Nobody has waited for this moment: what the user types belongs to something else.
    setDefaultButton(nullptr);
}

void UpdateStatusView::showChecking(std::function<void()> cancel)
{
    show({.title = Texts::tr("Looking for a newer version…"), .cancel = std::move(cancel)});
}

void UpdateStatusView::showDownload(const QString& version, std::function<void()> cancel)
{
    show({.title = Texts::tr("Downloading Tavik Launcher %1…").arg(version),
          .text = Texts::tr("Connecting…"),
          .isTransfer = true,
          .cancel = std::move(cancel)});
    m_received = 0;
    m_total = 0;
    m_rate = {};
}

void UpdateStatusView::followTransfer()
{
    m_refreshes.cancel();
    if (m_stage.isTransfer && isVisible()) {
        // Also while nothing arrives, or the speed would stay at what it last was.
        m_refreshes = m_mainQueue.every(refreshSeconds, [this] { refreshTransfer(); });
    }
}

void UpdateStatusView::showEvent(QShowEvent* event)
{
    UpdateView::showEvent(event);
    followTransfer();
}

void UpdateStatusView::hideEvent(QHideEvent* event)
{
    UpdateView::hideEvent(event);
    m_refreshes.cancel();
}

void UpdateStatusView::showDownloadProgress(qint64 received, qint64 total)
{
    const bool isFirst = m_received == 0;
    m_received = received;
    m_total = total;
    m_bar->setShare(total > 0 ? static_cast<double>(received) / static_cast<double>(total) : -1);
    if (isFirst) {
        refreshTransfer();
    } else {
        m_rate.add(received, m_mainQueue.systemUptime());
    }
}

void UpdateStatusView::refreshTransfer()
{
    if (m_received == 0) {
        return;
    }
    m_rate.add(m_received, m_mainQueue.systemUptime());
    QString text = m_total > 0 ? Texts::tr("%1 of %2").arg(dataSize(m_received), dataSize(m_total))
                               : dataSize(m_received);
    if (const std::optional<double> rate = m_rate.bytesPerSecond()) {
        text = Texts::tr("%1 — %2 per second").arg(text, dataSize(std::llround(*rate)));
    }
    m_text->setText(text);
}

void UpdateStatusView::showVerifying()
{
    show({.title = Texts::tr("Verifying the download…"),
          .text = Texts::tr("Only what its maker has signed is installed.")});
}

void UpdateStatusView::showReady(const QString& version,
                                 std::function<void()> install,
                                 std::function<void()> later)
{
    show({.title = Texts::tr("Ready to install."),
          .text = Texts::tr("Tavik Launcher closes, and starts again as version %1.").arg(version),
          .isBusy = false,
          .install = std::move(install),
          .later = std::move(later)});
}

void UpdateStatusView::showInstalling()
{
    show({.title = Texts::tr("Installing…"),
          .text = Texts::tr("Tavik Launcher starts again in a moment.")});
}

void UpdateStatusView::dismiss()
{
    call(m_stage.cancel ? m_stage.cancel : m_stage.later);
}

} // namespace Tavik
