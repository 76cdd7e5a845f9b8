#include <controls/row_label.h>

#include <QSignalSpy>
#include <QTest>

#include <array>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using enum RowColour;

/// Four rows whose owner colours them as a panel does.
class Rows : public testing::Test {
protected:
    Rows() {
        m_display.resize(200, 100);
        for (int i = 0; i < 4; ++i) {
            m_rows[i]->setGeometry(100 * (i / 2), 20 * (i % 2), 100, 20);
            QObject::connect(m_rows[i], &RowLabel::MouseMoved, &m_display,
                             [this, i] { HoverRows(m_rows, m_hoverRow, i); });
            QObject::connect(m_rows[i], &RowLabel::clicked, &m_display, [this, i] {
                m_hoverRow = i;
                MarkClicked(m_rows, *m_rows[i]);
            });
        }
        m_display.show();
    }

    std::array<RowColour, 4> Colours() const {
        return {m_rows[0]->ForeColor(), m_rows[1]->ForeColor(), m_rows[2]->ForeColor(),
                m_rows[3]->ForeColor()};
    }

    void Colours(std::array<RowColour, 4> colours) {
        for (std::size_t i = 0; i < colours.size(); ++i) {
            m_rows[i]->ForeColor(colours[i]);
        }
    }

    using Four = std::array<RowColour, 4>;
    QWidget m_display;
    std::array<RowLabel*, 4> m_rows{
        new RowLabel("one", &m_display), new RowLabel("two", &m_display),
        new RowLabel("three", &m_display), new RowLabel("four", &m_display)};
    int m_hoverRow = 1;
};

TEST_F(Rows, AClickedRowEndsSelectedByMouseAndByKeyboardAlike) {
    for (int click = 0; click < 2; ++click) {
        QTest::mouseClick(m_rows[0], Qt::LeftButton);
        EXPECT_EQ(Colours(), (Four{Selected, Plain, Plain, Plain}));
    }
    QTest::keyClick(m_rows[3], Qt::Key_Space);
    EXPECT_EQ(Colours(), (Four{Plain, Plain, Plain, Selected}));
    QTest::keyClick(m_rows[2], Qt::Key_Return);
    EXPECT_EQ(Colours(), (Four{Plain, Plain, Selected, Plain}));
}

TEST_F(Rows, ArrowsWalkAmongTheRowsOnViewAndStopAtTheEdge) {
    struct {
        int From;
        Qt::Key Key;
        int To;
    } const table[] = {{0, Qt::Key_Down, 1}, {1, Qt::Key_Up, 0}, {0, Qt::Key_Right, 2},
                       {3, Qt::Key_Left, 1}, {0, Qt::Key_Up, 0}, {3, Qt::Key_Right, 3}};

    for (const auto& row : table) {
        m_rows[row.From]->setFocus();
        QTest::keyClick(m_rows[row.From], row.Key);
        EXPECT_EQ(m_display.focusWidget(), m_rows[row.To]) << row.From << " to " << row.To;
    }
    m_rows[1]->hide();
    m_rows[0]->setFocus();
    QTest::keyClick(m_rows[0], Qt::Key_Down);
    EXPECT_EQ(m_display.focusWidget(), m_rows[3]);
}

} // namespace
} // namespace tqx
