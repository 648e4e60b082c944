// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/Form1.h"

#include "support/Dialogs.h"

#include <gtest/gtest.h>

#include <QInputDialog>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBlock>

namespace
{

class Form1Test : public testing::Test
{
protected:
    Form1Test() { window.show(); }

    template<typename Widget> Widget& control(const char* name)
    {
        auto* found = window.findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    void parse(const QByteArray& program)
    {
        const QString name = folder.filePath(QStringLiteral("code.txt"));
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(program) == program.size() && file.flush());
        control<QLineEdit>("FileName").setText(name);
        QTest::mouseClick(&control<QPushButton>("ParseButton"), Qt::LeftButton);
    }

    std::string text(const char* name) { return control<QPlainTextEdit>(name).toPlainText().toStdString(); }
    int cursorLine() { return control<QPlainTextEdit>("ProgramText").textCursor().blockNumber() + 1; }

    QTemporaryDir folder;
    Form1 window;
};

} // namespace

TEST_F(Form1Test, ListsAProgramThatIsRight)
{
    parse("; My game\nProgram{\r\nStates{\rBegin{\nloop{\nIF Counter$A =  +3.0 {\nset text$t \"x\" and "
          "more\n}else{\n"
          "pause\n}if\nchange counter$a "
          "random(1,me.x)\n}loop\n}begin\n}states\nclasses{\nball{\nnormal{\nMove ME\n"
          "create ball 1 \"dot\" 0 0 0 0 0\n}normal\n}ball\n}classes\n}program\n");
    EXPECT_EQ(text("Listing"), "program{\n"
                               "    ball{\n"
                               "        normal{\n"
                               "            move me\n"
                               "            create BALL 1 \"dot\" 0 0 0 0 0\n"
                               "        }normal\n"
                               "    }ball\n"
                               "    begin{\n"
                               "        loop{\n"
                               "            if counter$a = 3 {\n"
                               "              set text$t \"x\"\n"
                               "            }else{\n"
                               "              pause\n"
                               "            }if\n"
                               "            change counter$a random(1,me.x)\n"
                               "        }loop\n"
                               "    }begin\n"
                               "}program\n");
    EXPECT_TRUE(text("ProgramText").starts_with("; My game\nProgram{\nStates{\n"));
}

TEST_F(Form1Test, ShowsWhatIsWrongAndWhere)
{
    parse("program{\nclasses{\nball{\nnormal{\nmove\n}normal\n}ball\n}classes\n}program\n");
    EXPECT_EQ(text("Listing"),
              "You didn't specify what object to move in this instruction.\n\n   move\n\n(line 5)");
    EXPECT_EQ(cursorLine(), 5);
}

TEST_F(Form1Test, MovesTheTextCursorToALine)
{
    parse("program{\n\n\n}program\n");
    struct Case {
        const char* answer;
        int line;
    };
    for (const Case& c :
         {Case{"3", 3}, Case{"99", 3}, Case{"0", 3}, Case{"four", 3}, Case{"", 3}, Case{"4", 4}}) {
        QTimer::singleShot(0, &window, [&] {
            auto* box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->labelText(), u"line number");
            box->setTextValue(QLatin1String(c.answer));
            QTest::keyClick(box, Qt::Key_Return);
        });
        QTest::mouseClick(&control<QPushButton>("LineButton"), Qt::LeftButton);
        EXPECT_EQ(cursorLine(), c.line) << c.answer;
    }
}

TEST_F(Form1Test, SaysThatAFileCannotBeRead)
{
    Dialogs dialogs({QStringLiteral("ok")});
    control<QLineEdit>("FileName").setText(QStringLiteral("nothing.txt"));
    QTest::keyClick(&control<QLineEdit>("FileName"), Qt::Key_Return);
    EXPECT_EQ(dialogs.onlyText(), "I can't read the file \"nothing.txt\".");
}
