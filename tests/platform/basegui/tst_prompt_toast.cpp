#include "cqnoticeicon.h"
#include "cqtoastwidget.h"

#include <QPointer>
#include <QtTest>

class TestToast : public QObject
{
    Q_OBJECT
private slots:
    void fadesAndDeletesItself();
    void centredOverTheWindow();
    void newToastReplacesOld();
    void withoutParent();
    void iconTypes_data();
    void iconTypes();
};

void TestToast::fadesAndDeletesItself()
{
    QWidget window;
    window.resize(1000, 680);
    window.show();
    QPointer<CQToastWidget> toast = CQToastWidget::showToast(&window, "常规设置 设置保存成功", 3, 50);
    QVERIFY(toast);
    QVERIFY(toast->isVisible());
    QCOMPARE(toast->text(), QString("常规设置 设置保存成功"));
    QVERIFY(toast->testAttribute(Qt::WA_TransparentForMouseEvents));
    QTRY_VERIFY_WITH_TIMEOUT(toast.isNull(), 5000);
}

void TestToast::centredOverTheWindow()
{
    QWidget window;
    window.resize(1000, 680);
    auto* inner = new QWidget(&window);
    inner->setGeometry(10, 10, 100, 100);
    window.show();
    // a toast asked for on a child lands on the child's window
    CQToastWidget* toast = CQToastWidget::showToast(inner, "设置保存异常", 6, 60000);
    QCOMPARE(toast->parentWidget(), &window);
    QCOMPARE(toast->geometry().center().x(), window.rect().center().x());
    QVERIFY(qAbs(toast->geometry().center().y() - window.rect().center().y()) <= 1);
}

void TestToast::newToastReplacesOld()
{
    QWidget window;
    window.resize(400, 300);
    window.show();
    QPointer<CQToastWidget> first = CQToastWidget::showToast(&window, "one", 0, 60000);
    QPointer<CQToastWidget> second = CQToastWidget::showToast(&window, "two", 0, 60000);
    QTRY_VERIFY(first.isNull());
    QVERIFY(second);
}

void TestToast::withoutParent()
{
    QPointer<CQToastWidget> toast = CQToastWidget::showToast(nullptr, "no window", 1, 20);
    QVERIFY(toast->isWindow());
    QTRY_VERIFY_WITH_TIMEOUT(toast.isNull(), 5000);
}

void TestToast::iconTypes_data()
{
    QTest::addColumn<int>("toastType");
    QTest::addColumn<int>("noticeType");
    QTest::newRow("success") << 3 << int(CQNoticeIcon::ICON_SUCCESS);
    QTest::newRow("failure") << 5 << int(CQNoticeIcon::ICON_ERROR);
    QTest::newRow("error") << 6 << int(CQNoticeIcon::ICON_URGENT);
    QTest::newRow("none") << 0 << int(CQNoticeIcon::ICON_NONE);
    QTest::newRow("unknown") << 99 << int(CQNoticeIcon::ICON_NONE);
}

void TestToast::iconTypes()
{
    QFETCH(int, toastType);
    QFETCH(int, noticeType);
    QCOMPARE(CQToastWidget::noticeIconType(toastType), noticeType);
}

QTEST_MAIN(TestToast)
#include "tst_prompt_toast.moc"
