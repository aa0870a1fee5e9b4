// Whatever a command of the table changes is one undo step: also what a new one does.

#include "editor/Commands.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/editor/UndoSupport.h"

#include <QApplication>
#include <QKeySequence>
#include <QTimer>

namespace {

/// Closes the modal windows that appear while it lives.
class NoToAll
{
public:
    NoToAll()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [] {
            if (QWidget *window = QApplication::activeModalWidget()) {
                window->close();
            }
        });
        m_timer.start(10);
    }

private:
    QTimer m_timer;
};

} // namespace

TEST_F(UndoTest, takesBackEachCommandOfTheTableInOneStep)
{
    int changing = 0;
    for (const CommandInfo &command : commands()) {
        if (command.ofEditor == nullptr || command.menu == MenuName::File) {
            continue;
        }
        SCOPED_TRACE(command.name.toString().toStdString() + ' ' + QKeySequence(command.key).toString().toStdString());
        open(12);
        copy({-1, 1, 13, 2});
        grid().selectBlock({-1, 3, 13, 4});
        const Shown before = shown();
        {
            const NoToAll noToAll;
            command.ofEditor(editor());
        }
        if (shown() != before) {
            ++changing;
            EXPECT_TRUE(isChanged());
            undo();
            EXPECT_EQ(shown(), before);
        }
        stop();
    }
    EXPECT_GE(changing, 5) << "Cut, Paste, Add Paste, Add, Delete";
}
