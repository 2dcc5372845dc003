// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBrowser>

#include <functional>

namespace Tavik {

struct ReleaseNotes;

/// Shows release notes that came from the network: runs nothing, loads nothing, and hands on only
/// the links that may be followed.
class ReleaseNotesView final : public QTextBrowser
{
    Q_OBJECT

public:
    ReleaseNotesView(std::function<void(const QUrl&)> openLink, QWidget* parent);

    /// False when there is nothing to read in them; then nothing has changed.
    bool showNotes(const ReleaseNotes& notes);
    /// Says something of our own in the notes' place.
    void say(const QString& text);

    /// How high the notes are at a width, all of them; in points, and `enough` at most.
    [[nodiscard]] int fullHeight(int width, int enough) const;

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void setContent(const QString& html);

    QString m_html;
};

} // namespace Tavik
