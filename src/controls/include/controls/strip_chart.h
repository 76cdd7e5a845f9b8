#pragma once

#include <QImage>
#include <QWidget>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace tqx {

class SystemDialogs;

namespace strip {

/// Where a chart takes the time from.
struct Clock {
    /// Goes on evenly and never back; says when a sample came.
    std::function<std::chrono::nanoseconds()> Steady;
    /// The clock on the wall; only names moments.
    std::function<std::chrono::system_clock::time_point()> Wall;

    /// The clocks of this machine.
    static Clock Machine();
};

} // namespace strip

/// A strip chart of 18 numbered variables on white paper: numbered captions, a time axis that
/// follows the clock, and the whole run in bounded memory.
///
/// The inner pair YLow and YHigh is the range on view at the start, the outer pair YFloor and
/// YCeiling bounds every zoom. Setting any of the four returns to the inner pair. Colours are
/// 0x00BBGGRR.
///
/// What the user's hand does (freezing, zooming, hiding traces, cursors) never changes what a
/// program sees through the properties, and no sample is lost by it.
class StripChart : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int StripSetting24 READ StripSetting24 WRITE StripSetting24)
    Q_PROPERTY(double YFloor READ YFloor WRITE YFloor)
    Q_PROPERTY(double YLow READ YLow WRITE YLow)
    Q_PROPERTY(double YCeiling READ YCeiling WRITE YCeiling)
    Q_PROPERTY(double YHigh READ YHigh WRITE YHigh)
    Q_PROPERTY(int CaptionIndex READ CaptionIndex WRITE CaptionIndex)
    Q_PROPERTY(QString Caption READ Caption WRITE Caption)
    Q_PROPERTY(quint32 CaptionColor READ CaptionColor WRITE CaptionColor)
    Q_PROPERTY(int VariableIndex READ VariableIndex WRITE VariableIndex)
    Q_PROPERTY(quint32 VariableColor READ VariableColor)

public:
    explicit StripChart(QWidget* parent = nullptr);
    ~StripChart() override;

    /// Adds a sample to the trace of `variable`, 0 to 17; others are ignored. It is stamped with
    /// the chart's clock. Takes constant time and draws nothing: the next frame does. A value that
    /// is not a number leaves a gap.
    void AddStripPoint(std::int16_t variable, double value);

    /// Empties the chart and returns to the last 60 s, with every trace shown and no cursor.
    void ClearStrip();

    /// Kept for the program; the chart has no use for it.
    int StripSetting24() const;
    void StripSetting24(int value);

    double YFloor() const;
    void YFloor(double value);
    double YLow() const;
    void YLow(double value);
    double YCeiling() const;
    void YCeiling(double value);
    double YHigh() const;
    void YHigh(double value);

    /// The caption that Caption and CaptionColor address, as controls/strip_captions.h numbers
    /// them. One that is none reads empty and takes nothing.
    int CaptionIndex() const;
    void CaptionIndex(int index);
    QString Caption() const;
    void Caption(const QString& text);
    std::uint32_t CaptionColor() const;
    void CaptionColor(std::uint32_t colour);

    /// The variable that VariableColor addresses.
    int VariableIndex() const;
    void VariableIndex(int index);
    std::uint32_t VariableColor() const;

    /// What `variable`, 0 to 17, is called where its legend line is empty: its trace and its
    /// samples are there all the same.
    void NameVariable(int variable, const QString& name);

    /// The unit of all values, on the axis, in what the cursors read and in what is saved.
    void Unit(const QString& unit);

    /// Says on the chart that no samples are to come, and from when on; or no longer.
    void Stopped(bool stopped);

    /// Replaces the clock and empties the chart, whose times were the old one's.
    void Clock(strip::Clock clock);

    /// Replaces the desktop's dialogs by `dialogs`, which outlive the chart.
    void Dialogs(SystemDialogs& dialogs);

    /// Draws what came since the last frame. The chart calls it 60 times a second while samples
    /// come.
    void DrawFrame();

    /// @name What the user's hand can do, for programs
    /// @{

    /// Holds the picture while samples go on being kept; letting go returns to the newest sample.
    void Freeze(bool frozen);
    bool Frozen() const;

    /// The view that a chart starts with: the last 60 s in the starting range.
    void ShowLive();

    /// All that came since the chart was emptied; goes on with the run.
    void ShowWholeRun();

    /// Whether new samples move the view.
    bool Following() const;

    std::chrono::nanoseconds TimeOnView() const;
    double LowOnView() const;
    double HighOnView() const;
    bool TraceShown(int variable) const;
    /// @}

    /// @name The chart in words
    /// @{
    QString Title() const;
    QString LatestText() const; ///< "Vbatt 3.01, +5V 5.02": newest values of the traces shown
    QString StateText() const; ///< frozen, stopped, looking back, the legend, what the cursors read
    QString ReadoutText() const; ///< a row per trace, tabs between columns; empty without a cursor
    /// @}

    /// The chart as it stands, in pixels of the screen, with the date in place of its buttons.
    QImage Picture();

    /// Asks for a file name and saves the picture. Success is told with name and size, or the
    /// failure.
    void SavePicture();

    /// Asks for a file name and saves the samples on view of the traces shown, or all that is kept
    /// of every trace, as comma-separated values. Told like the picture.
    void ExportSamples(bool all);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Parts;
    void AddButtons();
    void BoundValues();
    void ConnectCommands();
    void ConnectFileCommands();
    void PlaceButtons();
    bool Prepare();
    void ShowChange();
    void TellState();
    QString AskFileName(const QString& title, const QString& suffix, const QString& filter);
    void SaveAndTell(const QString& title, const QString& name, const QByteArray& content);
    QRegion Paint(QPainter& painter, const QRegion& region);

    std::unique_ptr<Parts> m_parts;
};

} // namespace tqx
