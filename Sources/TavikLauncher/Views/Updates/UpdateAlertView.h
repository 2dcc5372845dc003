// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Updates/UpdateView.h>
#include <TavikLauncherPlatform/Updater.h>

#include <QUrl>

namespace Tavik {

class ReleaseNotesView;

/// Tells of a newer version, with what is new in it, and asks what to do.
class UpdateAlertView final : public UpdateView
{
    Q_OBJECT

public:
    struct Options
    {
        QString ownVersion; ///< Of the running program.
        /// The user waits for this window: Return installs.
        bool isAwaited = false;
    };
    struct Actions
    {
        std::function<void(UpdateChoice)> choose;
        std::function<void(const QUrl&)> openLink; ///< A link in the notes.
    };

    UpdateAlertView(const UpdateItem& item, const Options& options, Actions actions);

    void showReleaseNotes(const ReleaseNotes& notes);
    void showReleaseNotesFailure(const QString& reason);

    /// Below it something would be cut off; in points.
    [[nodiscard]] QSize smallestSize() const;
    /// Not larger than inline notes need.
    [[nodiscard]] QSize preferredSize();

    void dismiss() override { m_actions.choose(UpdateChoice::remindLater); }

private:
    void addNotes(const UpdateItem& item);
    void addButtons(const UpdateItem& item, bool isAwaited);

    Actions m_actions;
    ReleaseNotesView* m_notes = nullptr; ///< Null when there is nothing to read about the version.
    bool m_isComplete = true; ///< No notes are on their way.
};

} // namespace Tavik
