// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

#include <functional>

class QWidget;

namespace Tavik::Test {

/// Every window and every state of the ring, drawn over a desktop of fakes.
class GalleryScenes
{
public:
    /// `view` is what the picture is of; absent for the ring, which is drawn from values.
    using Keep = std::function<void(const QString& name, const QImage& picture, QWidget* view)>;

    /// "light" or "dark", with "contrast-", "rtl-" or "keys-" in front of it: for poor eyesight,
    /// from right to left, and with the focus somewhere.
    explicit GalleryScenes(const QString& scheme);
    void drawAll(const Keep& keep);
    void drawWindows(const Keep& keep);

private:
    void drawRing(const Keep& keep);
    void drawSettings(const Keep& keep);
    void drawSmallWindows(const Keep& keep);
    void drawUpdates(const Keep& keep);

    QString m_scheme;
};

} // namespace Tavik::Test
