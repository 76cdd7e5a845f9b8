#include "simulator/board_window_fixture.h"

#include <QClipboard>
#include <QListView>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

constexpr const char* IDRead = "S 58w+ 16+ Sr 59r+ 41- P";
constexpr const char* RevisionRead = "S 58w+ 17+ Sr 59r+ 42- P";

class TracePageTest : public test::BoardWindowTest {
protected:
    TracePageTest() { Open("TracePage"); }

    QListView& List() { return Find<QListView>("TraceLIST"); }

    void Press(const char* name) { Click(Find<QAbstractButton>(name)); }

    /// The rows as they stand after the next refresh.
    std::vector<std::string> Rows() {
        TheWindow.hide();
        TheWindow.show();
        std::vector<std::string> rows;
        for (int row = 0; row < List().model()->rowCount(); ++row) {
            rows.push_back(List().model()->index(row, 0).data().toString().toStdString());
        }
        return rows;
    }

    static std::string Clipboard() { return QApplication::clipboard()->text().toStdString(); }
};

TEST_F(TracePageTest, PauseStopsItAndClearEmptiesIt) {
    Read(0x16);
    Press("PauseCMD");
    Read(0x17);
    EXPECT_THAT(Rows(), ElementsAre(EndsWith(IDRead)));
    Press("PauseCMD");
    Read(0x17);
    EXPECT_THAT(Rows(), ElementsAre(EndsWith(IDRead), EndsWith(RevisionRead)));
    Press("ClearCMD");
    EXPECT_THAT(Rows(), IsEmpty());
}

} // namespace
} // namespace tqx
