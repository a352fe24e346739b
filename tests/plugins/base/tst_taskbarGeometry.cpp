// The panel readers over what dbus-send and gsettings really print, and the
// two rules that place the tray menu.

#include "taskbarGeometry.h"

#include <QtTest>

namespace {

// dbus-send --print-reply around a property value.
QByteArray dockReply(QByteArray const& value)
{
    return "method return time=1700000000.123456 sender=:1.7 -> destination=:1.9 serial=5 reply_serial=2\n"
           "   variant       " + value + "\n";
}

} // namespace

class TstTaskbarGeometry : public QObject
{
    Q_OBJECT

private slots:
    void sourceByDistribution_data()
    {
        QTest::addColumn<QByteArray>("osName");
        QTest::addColumn<int>("source");
        QTest::newRow("uos") << QByteArray("uos") << int(TaskbarGeometry::ESOURCE_DEEPIN_DOCK);
        QTest::newRow("kylin") << QByteArray("kylin") << int(TaskbarGeometry::ESOURCE_UKUI_PANEL);
        QTest::newRow("neokylin contains kylin") << QByteArray("neokylin") << int(TaskbarGeometry::ESOURCE_UKUI_PANEL);
        QTest::newRow("uos before kylin") << QByteArray("kylinuos") << int(TaskbarGeometry::ESOURCE_DEEPIN_DOCK);
        QTest::newRow("debian") << QByteArray("debian") << int(TaskbarGeometry::ESOURCE_NONE);
        QTest::newRow("unknown") << QByteArray("") << int(TaskbarGeometry::ESOURCE_NONE);
    }
    void sourceByDistribution()
    {
        QFETCH(QByteArray, osName);
        QFETCH(int, source);
        QCOMPARE(int(TaskbarGeometry::sourceFor(osName.toStdString())), source);
    }

    // Deepin values 0 top, 1 right, 2 bottom, 3 left; the first number stops
    // the scan even when it maps to nothing.
    void dockSide_data()
    {
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<int>("side");
        QTest::newRow("bottom") << dockReply("int32 2") << 3;
        QTest::newRow("left") << dockReply("int32 3") << 0;
        QTest::newRow("unknown value stops the scan") << dockReply("int32 7 3") << 3;
        QTest::newRow("first number wins") << dockReply("int32 3 0") << 0;
        QTest::newRow("negative is no number") << dockReply("int32 -1") << 3;
        QTest::newRow("tab is no separator") << dockReply("int32\t1") << 3;
        QTest::newRow("error reply")
            << QByteArray("Error org.freedesktop.DBus.Error.ServiceUnknown: The name com.deepin.dde.daemon.Dock was "
                          "not provided by any .service files\n")
            << 3;
        QTest::newRow("nothing printed") << QByteArray() << 3;
    }
    void dockSide()
    {
        QFETCH(QByteArray, output);
        QFETCH(int, side);
        QCOMPARE(TaskbarGeometry::dockSide(output.toStdString()), side);
    }

    // UKUI values 0 bottom, 1 top, 2 left, 3 right; the last mappable number
    // stays.
    void ukuiSide_data()
    {
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<int>("side");
        QTest::newRow("bottom") << QByteArray("0\n") << 3;
        QTest::newRow("left, typed") << QByteArray("uint32 2\n") << 0;
        QTest::newRow("last number wins") << QByteArray("2\n1\n") << 1;
        QTest::newRow("unknown value keeps the last") << QByteArray("3 9\n") << 2;
        QTest::newRow("no such key") << QByteArray("No such key “panelposition”\n") << 3;
        QTest::newRow("nothing printed") << QByteArray() << 3;
    }
    void ukuiSide()
    {
        QFETCH(QByteArray, output);
        QFETCH(int, side);
        QCOMPARE(TaskbarGeometry::ukuiSide(output.toStdString()), side);
    }

    void thickness_data()
    {
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<int>("thickness");
        QTest::newRow("dock, uint32") << dockReply("uint32 56") << 56;
        QTest::newRow("ukui, plain") << QByteArray("46\n") << 46;
        QTest::newRow("first number wins") << QByteArray("30 50") << 30;
        QTest::newRow("zero is a thickness") << QByteArray("0") << 0;
        QTest::newRow("negative is no number") << QByteArray("-4") << 40;
        QTest::newRow("no number") << QByteArray("uint32\n") << 40;
        QTest::newRow("nothing printed") << QByteArray() << 40;
    }
    void thickness()
    {
        QFETCH(QByteArray, output);
        QFETCH(int, thickness);
        QCOMPARE(TaskbarGeometry::thickness(output.toStdString()), thickness);
    }

    void placeAtCursor_data()
    {
        QTest::addColumn<QPoint>("cursor");
        QTest::addColumn<QSize>("menu");
        QTest::addColumn<QPoint>("topLeft");
        QTest::newRow("left edge, above") << QPoint(5, 900) << QSize(270, 300) << QPoint(5, 600);
        QTest::newRow("right edge, above") << QPoint(1900, 1070) << QSize(270, 300) << QPoint(1630, 770);
        QTest::newRow("centred, top edge") << QPoint(500, 100) << QSize(270, 300) << QPoint(365, 100);
        QTest::newRow("exactly at the right edge") << QPoint(1785, 400) << QSize(270, 300) << QPoint(1515, 100);
        QTest::newRow("just inside the right edge") << QPoint(1784, 400) << QSize(270, 300) << QPoint(1649, 100);
        QTest::newRow("odd width rounds toward zero") << QPoint(200, 400) << QSize(271, 300) << QPoint(65, 100);
        QTest::newRow("huge reported point") << QPoint(INT_MAX, INT_MAX) << QSize(270, 300)
                                             << QPoint(INT_MAX - 270, INT_MAX - 300);
    }
    void placeAtCursor()
    {
        QFETCH(QPoint, cursor);
        QFETCH(QSize, menu);
        QFETCH(QPoint, topLeft);
        QCOMPARE(TaskbarGeometry::placeAtCursor(cursor, menu, QSize(1920, 1080)), topLeft);
    }

    void placeByPanel_data()
    {
        QTest::addColumn<int>("side");
        QTest::addColumn<int>("thickness");
        QTest::addColumn<QPoint>("topLeft");
        QTest::newRow("left") << 0 << 40 << QPoint(40, 780);
        QTest::newRow("bottom") << 3 << 40 << QPoint(1650, 740);
        QTest::newRow("no side") << 4 << 40 << QPoint(0, 0);
        QTest::newRow("absurd thickness") << 3 << INT_MAX << QPoint(1650, 780 - INT_MAX);
    }
    void placeByPanel()
    {
        QFETCH(int, side);
        QFETCH(int, thickness);
        QFETCH(QPoint, topLeft);
        QCOMPARE(TaskbarGeometry::placeByPanel(side, thickness, QSize(270, 300), QSize(1920, 1080)), topLeft);
    }
};

QTEST_APPLESS_MAIN(TstTaskbarGeometry)
#include "tst_taskbarGeometry.moc"
