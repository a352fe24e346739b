#include "cqautocountdownwin.h"
#include "cqcheckbox.h"
#include "cqlabelstate.h"
#include "cqline.h"
#include "cqloadingwin.h"
#include "cqnoticeicon.h"
#include "cqradiobutton.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

// Number of pixels the icon painted, and the colour at its centre.
int paintedPixels(QImage const& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    }
    return count;
}

} // namespace

class TestPromptWidgets : public QObject
{
    Q_OBJECT
private slots:
    void noticeIcons_data();
    void noticeIcons();
    void countDownText_data();
    void countDownText();
    void countDownRuns();
    void labelStateTypes_data();
    void labelStateTypes();
    void lineThickness();
    void loadingSpins();
    void checkAndRadioPaintIndicator();
};

void TestPromptWidgets::noticeIcons_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("painted");
    QTest::addColumn<QRgb>("centre");   // 0: not checked
    QTest::newRow("info") << 1 << true << QRgb(0xFFFFFFFF);
    QTest::newRow("success") << 2 << true << QRgb(0);
    QTest::newRow("warning") << 3 << true << QRgb(0xFFFFFFFF);
    QTest::newRow("error") << 4 << true << QRgb(0xFFFFFFFF);
    QTest::newRow("urgent") << 5 << true << QRgb(0);
    QTest::newRow("question") << 6 << true << QRgb(0);
    QTest::newRow("shield") << 7 << true << QRgb(0);
    QTest::newRow("badge risk") << 13 << true << QRgb(0);
    QTest::newRow("badge danger") << 14 << true << QRgb(0xFFFFFFFF);
    QTest::newRow("computer") << 15 << true << QRgb(0);
    QTest::newRow("none") << 0 << false << QRgb(0);
    QTest::newRow("unknown") << 9 << false << QRgb(0);
    QTest::newRow("negative") << -3 << false << QRgb(0);
}

void TestPromptWidgets::noticeIcons()
{
    QFETCH(int, type);
    QFETCH(bool, painted);
    QFETCH(QRgb, centre);
    for (int size : { 24, 40 }) {
        QImage const image = CQNoticeIcon::pixmap(type, size).toImage();
        QCOMPARE(image.size(), QSize(size, size));
        int const pixels = paintedPixels(image);
        QCOMPARE(pixels > size * size / 5, painted);
        if (centre)
            QCOMPARE(image.pixel(size / 2, size / 2) | 0xFF000000, centre);
    }
    CQNoticeIcon icon(type);
    QCOMPARE(icon.iconType(), type);
    QCOMPARE(icon.sizeHint(), QSize(24, 24));
}

void TestPromptWidgets::countDownText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("seconds");
    QTest::addColumn<QString>("expected");
    QTest::newRow("default") << QString() << 5 << QString("5秒后自动关闭");
    QTest::newRow("placeholder") << QString("剩余%1秒") << 3 << QString("剩余3秒");
    QTest::newRow("plain text") << QString("关闭") << 2 << QString("关闭 (2s)");
}

void TestPromptWidgets::countDownText()
{
    QFETCH(QString, text);
    QFETCH(int, seconds);
    QFETCH(QString, expected);
    QCOMPARE(CQAutoCountDownWin::formatText(text, seconds), expected);
}

void TestPromptWidgets::countDownRuns()
{
    CQAutoCountDownWin win;
    QVERIFY(!win.start());   // default record: seconds -1
    win.setInfo({ 1, QString() });
    QCOMPARE(win.text(), QString("1秒后自动关闭"));
    QSignalSpy zero(&win, &CQAutoCountDownWin::sig_time_is_zero);
    QVERIFY(win.start());
    QVERIFY(zero.wait(5000));
    QCOMPARE(win.remaining(), 0);
    QVERIFY(!win.isRunning());
    QCOMPARE(win.text(), QString());
}

void TestPromptWidgets::labelStateTypes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("expected");
    QTest::newRow("monitoring") << 0 << 0;
    QTest::newRow("error") << 2 << 2;
    QTest::newRow("unknown") << 8 << 3;
}

void TestPromptWidgets::labelStateTypes()
{
    QFETCH(int, type);
    QFETCH(int, expected);
    CQLabelState state("监控中", type);
    QCOMPARE(state.uiType(), expected);
    QCOMPARE(state.text(), QString("监控中"));
}

void TestPromptWidgets::lineThickness()
{
    CQLine vertical(Qt::Vertical);
    vertical.setFixedHeight(42);
    QCOMPARE(vertical.maximumWidth(), 1);
    CQLine horizontal(Qt::Horizontal);
    QCOMPARE(horizontal.maximumHeight(), 1);
    horizontal.setOrientation(Qt::Vertical);
    QCOMPARE(horizontal.maximumWidth(), 1);
    QVERIFY(horizontal.maximumHeight() > 1);
}

void TestPromptWidgets::loadingSpins()
{
    CQLoadingWin loading;
    loading.resize(744, 74);
    loading.setLoadingIconSize(16);
    loading.setText("加载中", 8);
    QCOMPARE(loading.text(), QString("加载中"));
    loading.startLoading();
    loading.startLoading();
    QVERIFY(loading.isLoading());
    loading.stopLoading();
    QVERIFY(!loading.isLoading());
    // frames differ as the arc turns
    QImage const a = CQLoadingWin::spinnerPixmap(16, 0, Qt::blue).toImage();
    QImage const b = CQLoadingWin::spinnerPixmap(16, 90, Qt::blue).toImage();
    QVERIFY(a != b);
    QVERIFY(paintedPixels(a) > 0);
}

void TestPromptWidgets::checkAndRadioPaintIndicator()
{
    CQCheckBox box("记住选择");
    CQRadioButton radio("最小化到托盘");
    for (QAbstractButton* button : { static_cast<QAbstractButton*>(&box), static_cast<QAbstractButton*>(&radio) }) {
        button->resize(button->sizeHint());
        QImage off = button->grab().toImage();
        button->setChecked(true);
        QImage on = button->grab().toImage();
        QVERIFY2(off != on, qPrintable(button->text()));
    }
}

QTEST_MAIN(TestPromptWidgets)
#include "tst_prompt_widgets.moc"
