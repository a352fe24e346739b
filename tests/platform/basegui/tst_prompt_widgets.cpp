#include "cqlabelstate.h"
#include "cqnoticeicon.h"
#include "cqtoastwidget.h"

#include <QPointer>
#include <QtTest>

// Toasts, and what unknown icon and state types fall back to.
class TestPromptWidgets : public QObject
{
    Q_OBJECT
private slots:
    void toastDeletesItself_data();
    void toastDeletesItself();
    void newToastCentredReplacesOld();
    void unknownTypesFallBack();
};

void TestPromptWidgets::toastDeletesItself_data()
{
    QTest::addColumn<bool>("withWindow");
    QTest::newRow("over a window") << true;
    QTest::newRow("no window") << false;
}

void TestPromptWidgets::toastDeletesItself()
{
    QFETCH(bool, withWindow);
    QWidget window;
    window.resize(1000, 680);
    window.show();
    QPointer<CQToastWidget> toast = CQToastWidget::showToast(withWindow ? &window : nullptr, "常规设置 设置保存成功", 3, 50);
    QVERIFY(toast);
    QVERIFY(toast->isVisible());
    QCOMPARE(toast->isWindow(), !withWindow);
    QVERIFY(toast->testAttribute(Qt::WA_TransparentForMouseEvents));
    QTRY_VERIFY_WITH_TIMEOUT(toast.isNull(), 5000);
}

void TestPromptWidgets::newToastCentredReplacesOld()
{
    QWidget window;
    window.resize(1000, 680);
    auto* inner = new QWidget(&window);
    inner->setGeometry(10, 10, 100, 100);
    window.show();
    QPointer<CQToastWidget> first = CQToastWidget::showToast(inner, "设置保存异常", 6, 60000);
    CQToastWidget* second = CQToastWidget::showToast(&window, "设置保存成功", 3, 60000);
    QCOMPARE(second->parentWidget(), &window);
    QCOMPARE(second->geometry().center().x(), window.rect().center().x());
    QVERIFY(qAbs(second->geometry().center().y() - window.rect().center().y()) <= 1);
    QTRY_VERIFY(first.isNull());   // one toast per window: the new one replaces the old
}

void TestPromptWidgets::unknownTypesFallBack()
{
    QCOMPARE(CQToastWidget::noticeIconType(6), int(CQNoticeIcon::ICON_URGENT));
    QCOMPARE(CQToastWidget::noticeIconType(99), int(CQNoticeIcon::ICON_NONE));
    // Unknown icon types paint nothing rather than something wrong.
    for (int type : { 0, 9, -3 }) {
        QImage const image = CQNoticeIcon::pixmap(type, 24).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                QCOMPARE(qAlpha(image.pixel(x, y)), 0);
        }
    }
    QCOMPARE(CQLabelState("监控中", 8).uiType(), 3);
}

QTEST_MAIN(TestPromptWidgets)
#include "tst_prompt_widgets.moc"
