#pragma once

#include "controls/linear_gauge_geometry.h"

#include <QPixmap>
#include <QString>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <optional>

namespace tqx {

/// An upright linear gauge on a dark display: scale at the left, a bar from `BarOrigin` to the
/// reading, a caption in large digits beneath, and four pointers on the same scale.
///
/// Pointers 0 and 1 are bands along the two edges, pointer 2 is the low and 3 the high handle, each
/// with a flag that shows its value. Every pointer property acts on the pointer that `PointerIndex`
/// names. A reading or a pointer outside the scale stands at its end with an arrow.
///
/// The user moves a pointer by mouse, wheel or keyboard. The gauge then tells of every step with
/// `PointerMoved` and of the end with `PointerSettled`. What the program sets is never told.
class LinearGauge : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int BarSelect READ BarSelect WRITE BarSelect)
    Q_PROPERTY(double BarValue READ BarValue WRITE BarValue)
    Q_PROPERTY(int BarOrigin READ BarOrigin WRITE BarOrigin)
    Q_PROPERTY(QString Caption READ Caption WRITE Caption)
    Q_PROPERTY(QString Unit READ Unit WRITE Unit)
    Q_PROPERTY(double ScaleMax READ ScaleMax WRITE ScaleMax)
    Q_PROPERTY(double ScaleMin READ ScaleMin WRITE ScaleMin)
    Q_PROPERTY(int PointerIndex READ PointerIndex WRITE PointerIndex)
    Q_PROPERTY(double PointerValue READ PointerValue WRITE PointerValue)
    Q_PROPERTY(double PointerFrom READ PointerFrom WRITE PointerFrom)
    Q_PROPERTY(double PointerTo READ PointerTo WRITE PointerTo)
    Q_PROPERTY(double PointerInner READ PointerInner WRITE PointerInner)
    Q_PROPERTY(double PointerOuter READ PointerOuter WRITE PointerOuter)
    Q_PROPERTY(double PointerWidth READ PointerWidth WRITE PointerWidth)
    Q_PROPERTY(int PointerMouseControl READ PointerMouseControl WRITE PointerMouseControl)
    Q_PROPERTY(int PointerDecimals READ PointerDecimals WRITE PointerDecimals)
    Q_PROPERTY(bool PointerFlagA READ PointerFlagA WRITE PointerFlagA)
    Q_PROPERTY(bool PointerFlagB READ PointerFlagB WRITE PointerFlagB)
    Q_PROPERTY(double GaugeSetting53 READ GaugeSetting53 WRITE GaugeSetting53)
    Q_PROPERTY(int GaugeSetting37 READ GaugeSetting37 WRITE GaugeSetting37)

public:
    explicit LinearGauge(QWidget* parent = nullptr);

    /// The bar that the bar properties act on. This gauge has one; the number is only kept.
    int BarSelect() const { return m_barSelect; }
    void BarSelect(int bar) { m_barSelect = bar; }

    /// The reading, kept as it was set, on the scale or not. No bar is drawn for a NaN.
    double BarValue() const { return m_barValue; }
    void BarValue(double value);

    /// Where on the scale the bar begins.
    int BarOrigin() const { return m_barOrigin; }
    void BarOrigin(int origin);

    /// The text under the gauge. It stands at the left of a field that is centred, so that its
    /// digits keep their places as the reading changes.
    QString Caption() const { return m_caption; }
    void Caption(const QString& caption);

    /// The unit shown behind the value of a pointer in the user's hand, "V"; empty for none.
    QString Unit() const { return m_unit; }
    void Unit(const QString& unit);

    /// The ends of the scale; one that is not finite is ignored.
    double ScaleMax() const { return m_scale.Max; }
    void ScaleMax(double value);

    double ScaleMin() const { return m_scale.Min; }
    void ScaleMin(double value);

    /// The pointer that the properties below act on, 0 to 3; any other number is ignored.
    int PointerIndex() const { return m_pointerIndex; }
    void PointerIndex(int pointer);

    /// Where a handle stands, in the scale's unit; a value that is not finite is ignored, here and
    /// for the ends of a band.
    double PointerValue() const { return Addressed().Place.Value; }
    void PointerValue(double value);

    /// The two ends of a band, in the scale's unit.
    double PointerFrom() const { return Addressed().Place.From; }
    void PointerFrom(double value);

    double PointerTo() const { return Addressed().Place.To; }
    void PointerTo(double value);

    /// The pointer's extent across the gauge, 0 beside the scale to 1. Two equal ones collapse it.
    double PointerInner() const { return Addressed().Inner; }
    void PointerInner(double fraction);

    double PointerOuter() const { return Addressed().Outer; }
    void PointerOuter(double fraction);

    /// The width of a handle along the scale, as a fraction; 0 collapses it.
    double PointerWidth() const { return Addressed().Width; }
    void PointerWidth(double fraction);

    /// 1 when the user can move the pointer, else 0.
    int PointerMouseControl() const { return Addressed().MouseControl; }
    void PointerMouseControl(int control);

    /// The decimals that a handle is rounded to in the user's hand and shown with. The bands take
    /// those of pointer 2.
    int PointerDecimals() const { return Addressed().Decimals; }
    void PointerDecimals(int decimals);

    /// Kept for their owner; the gauge itself makes no use of these four.
    bool PointerFlagA() const { return Addressed().FlagA; }
    void PointerFlagA(bool flag) { Addressed().FlagA = flag; }

    bool PointerFlagB() const { return Addressed().FlagB; }
    void PointerFlagB(bool flag) { Addressed().FlagB = flag; }

    double GaugeSetting53() const { return m_setting53; }
    void GaugeSetting53(double value) { m_setting53 = value; }

    int GaugeSetting37() const { return m_setting37; }
    void GaugeSetting37(int value) { m_setting37 = value; }

    /// The pointer that the keyboard moves; none before the first was picked.
    std::optional<int> PickedPointer() const;

    /// Moves a draggable pointer, a band by its `PointerFrom`, as the user's hand would: one step,
    /// then it settles.
    void MoveByHand(int pointer, double value);

    /// Takes the pointer that the user holds out of the hand, where it stands; nothing is told.
    void LetGo();

    const GaugeScale& Scale() const { return m_scale; }

    const GaugePointers& Pointers() const { return m_pointers; }

    /// Where its parts stand.
    const GaugeGeometry& Plan() const { return m_geometry; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has moved a pointer by one step; `PointerIndex` names it. Comes once more as the
    /// last step, with every pointer where the handlers have left it, and once after Escape, with
    /// every pointer back where it stood before.
    void PointerMoved();

    /// The user has let go of a pointer that was moved; `PointerIndex` names it.
    void PointerSettled();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    enum class Hand { Mouse, Keys, Wheel };

    /// A pointer in the user's hand. It is remembered here because handlers move `PointerIndex`.
    struct Hold {
        Hand By;
        int Pointer;
        double TakenAt;      // mouse: where on the scale it was taken
        PointerPlace Asked;  // the last place the hand has asked for
        GaugePointers Start; // where all stood before
        bool Moved = false;
    };

    GaugePointer& Addressed() { return m_pointers[static_cast<std::size_t>(m_pointerIndex)]; }

    const GaugePointer& Addressed() const {
        return m_pointers[static_cast<std::size_t>(m_pointerIndex)];
    }
    template <class Type>
    void Put(Type& field, Type value);
    void PointersChanged();
    void LayOut();
    void DrawFace(QPainter& painter);

    void Pick(std::optional<int> pointer);
    void TakeHold(Hand by, int pointer, double takenAt = 0.0);
    void StepHeld(const PointerPlace& place);
    void StepBy(Hand by, double shift);
    void TellMoved(int pointer);
    void Settle();
    void PutBack();
    void ShowCursor(QPointF point);
    void TellValue();

    GaugeScale m_scale;
    GaugePointers m_pointers;
    GaugeGeometry m_geometry;
    QPixmap m_face; // the scale and what else stands still
    QString m_caption;
    QString m_unit;
    double m_barValue = 0.0;
    double m_setting53 = 0.0;
    int m_setting37 = 0;
    int m_barSelect = 1;
    int m_barOrigin = 0;
    int m_pointerIndex = 0;
    std::optional<int> m_picked;
    std::optional<Hold> m_hold;
    int m_wheelTurn = 0; // eighths of a degree not yet made into steps
    QTimer m_wheelPause;
    QVariant m_toldValue; // what screen readers were told last
};

} // namespace tqx
