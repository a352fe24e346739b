#include "cqbutton.h"
#include "promptdialog.h"
#include "prompttitlewin.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

class TestPromptDialog : public QObject
{
    Q_OBJECT
private slots:
    void execAnswers_data();
    void execAnswers();
    void modes_data();
    void modes();
    void titleTypes_data();
    void titleTypes();
    void titleColoursAndClose();
};

void TestPromptDialog::execAnswers_data()
{
    QTest::addColumn<int>("which");   // 0 ok, 1 cancel, 2 title close
    QTest::addColumn<int>("result");
    QTest::newRow("ok") << 0 << 1;
    QTest::newRow("cancel") << 1 << 0;
    QTest::newRow("title close") << 2 << 0;
}

void TestPromptDialog::execAnswers()
{
    QFETCH(int, which);
    QFETCH(int, result);
    QWidget window;
    window.resize(1000, 680);
    window.show();
    PromptDialog dialog(PromptDialog::MODE_TWO_ROW_TWO_BTN, "没点击保存，切换标签页会导致已填数据丢失。",
                        "确认要切换标签页吗？", &window);
    dialog.centreOn(&window);
    QAbstractButton* buttons[] = { dialog.okButton(), dialog.cancelButton(), dialog.titleWin()->closeButton() };
    QTimer::singleShot(0, buttons[which], &QAbstractButton::click);
    QCOMPARE(dialog.exec(), result);
}

void TestPromptDialog::modes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("secondLine");
    QTest::addColumn<bool>("cancel");
    QTest::newRow("one row one button") << 0 << false << false;
    QTest::newRow("one row two buttons") << 1 << false << true;
    QTest::newRow("two rows one button") << 2 << true << false;
    QTest::newRow("two rows two buttons") << 3 << true << true;
    QTest::newRow("unknown mode") << 9 << true << true;
}

void TestPromptDialog::modes()
{
    QFETCH(int, mode);
    QFETCH(bool, secondLine);
    QFETCH(bool, cancel);
    PromptDialog dialog;
    dialog.setParas(mode, "line one", "line two");
    auto* line2 = dialog.findChild<QLabel*>("m_pLabLine2");
    QCOMPARE(!line2->isHidden(), secondLine);
    QCOMPARE(line2->text(), secondLine ? QString("line two") : QString());
    QCOMPARE(!dialog.cancelButton()->isHidden(), cancel);
    QCOMPARE(dialog.findChild<QLabel*>("m_pLabLine1")->text(), QString("line one"));
}

void TestPromptDialog::titleTypes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("expected");
    QTest::addColumn<bool>("showClose");
    QTest::newRow("normal") << 0 << 0 << true;
    QTest::newRow("accent") << 1 << 1 << true;
    QTest::newRow("urgent") << 2 << 2 << false;
    QTest::newRow("unknown") << 5 << 0 << true;
}

void TestPromptDialog::titleTypes()
{
    QFETCH(int, type);
    QFETCH(int, expected);
    QFETCH(bool, showClose);
    PromptTitleWin title;
    title.resize(380, 48);
    title.setParas(type, "Quorix终端安全管理系统", false, showClose);
    QCOMPARE(title.type(), expected);
    QCOMPARE(title.title(), QString("Quorix终端安全管理系统"));
    QCOMPARE(!title.closeButton()->isHidden(), showClose);
}

void TestPromptDialog::titleColoursAndClose()
{
    PromptTitleWin title;
    title.setParas(0, "设置中心", false, true);
    title.setBackgroundColor("#DBEAFF");
    title.setTitleColor("#333444");
    QVERIFY(title.styleSheet().contains("#DBEAFF"));
    title.setBackgroundColor("not a colour");
    QVERIFY(title.styleSheet().contains("#DBEAFF"));

    QSignalSpy spy(&title, &PromptTitleWin::sig_close_btn_clicked);
    title.setParas(2, "x", false, true);   // a new look keeps the close signal working
    title.closeButton()->click();
    QCOMPARE(spy.count(), 1);
}

QTEST_MAIN(TestPromptDialog)
#include "tst_prompt_dialog.moc"
