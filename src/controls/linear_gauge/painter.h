#pragma once

#include "controls/linear_gauge_geometry.h"

#include <QFont>
#include <QRegion>
#include <QString>

#include <optional>

class QPainter;

namespace tqx::gauge {

QFont LabelFont();
QFont FlagFont();
QFont CaptionFont();

/// The room that the texts of any gauge take, so that gauges of all scales look alike.
GaugeTextSizes TextSizes();

/// What a gauge shows besides its scale.
struct Reading {
    double BarOrigin;
    double BarValue;
    const GaugePointers& Pointers;
    QString Unit;
    std::optional<int> Held;    ///< in the user's hand: its value stands out, with the unit
    std::optional<int> Focused; ///< the one that the keyboard moves
};

/// The face: display, scale with its labels, track.
void DrawScale(QPainter& painter, QSize size, const GaugeGeometry& geometry);

void DrawBar(QPainter& painter, const GaugeGeometry& geometry, const Reading& reading);

/// Leaves out the flags that lie clear of `dirty`, so that a moving bar does not draw their text.
void DrawPointers(QPainter& painter, const GaugeGeometry& geometry, const Reading& reading,
                  const QRegion& dirty);

/// The caption at the left of a field in the middle that is `characters` wide.
void DrawCaption(QPainter& painter, const QRect& area, const QString& caption, int characters);

/// How many characters the widest caption on a scale has: sign, number, blank and unit.
int CaptionCharacters(const GaugeScale& scale, int decimals, const QString& unit);

} // namespace tqx::gauge
