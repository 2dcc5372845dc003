// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Ring/RingScene.h>

#include <QFont>
#include <QList>
#include <QRectF>

/// Where the texts in the ring's hole go: one below the other about its centre, each in a rounded
/// label that keeps clear of the band. In the ring's own plane: points, y down.
namespace Tavik::CenterLayout {

enum class Row {
    indicator,
    name,
    field,
    message,
    spinner,
    launchHint,
};

struct Label
{
    Row row = Row::field;
    QString text; ///< A name may have two lines.
    QFont font;
    double padding = 0; ///< Between the label's edge and its text, on either side.
    double cornerRadius = 0;
    QRectF rect;
};

/// The labels from top to bottom, also a field that is faded out.
[[nodiscard]] QList<Label> labels(const RingScene& scene);
/// Of the labels those that are seen.
[[nodiscard]] QList<Label> visibleLabels(const RingScene& scene);
/// Where the filter field's label is, also once it has faded.
[[nodiscard]] QRectF fieldRect(const RingScene& scene);

} // namespace Tavik::CenterLayout
