#include "basegui_common.h"
#include "cqlabel.h"
#include "cqlabelmultifontsize.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QtTest>

// The kit's layout, style-sheet, placement and text-fitting helpers.
class TstKitCommon : public QObject
{
    Q_OBJECT

private slots:
    void clearLayout_data();
    void clearLayout();
    void clearGridLayout();
    void readQssFile();
    void setWidgetMidPos();
    void labelFitting_data();
    void labelFitting();
    void labelTipHandling();
    void labelRefitsOnResize();
    void multiFontEscaping_data();
    void multiFontEscaping();
    void multiFontBadIndex();
};

namespace {

QString const kLong = QString::fromUtf8("这是一段非常非常长的客户端版本说明文字，无论如何也放不进这么窄的标签");

} // namespace

void TstKitCommon::clearLayout_data()
{
    QTest::addColumn<bool>("deleteWidgets");
    QTest::newRow("widgets kept") << false;
    QTest::newRow("widgets deleted on request") << true;
}

void TstKitCommon::clearLayout()
{
    QFETCH(bool, deleteWidgets);
    QWidget host;
    auto* layout = new QVBoxLayout(&host);
    auto* nested = new QHBoxLayout;
    QList<QPointer<QWidget>> widgets{new QWidget, new QWidget, new QWidget};
    layout->addWidget(widgets[0]);
    layout->addStretch(1);
    layout->addSpacing(12);
    layout->addLayout(nested);
    nested->addWidget(widgets[1]);
    nested->addWidget(widgets[2]);
    host.show();

    basegui::Common::clearLayout(layout, deleteWidgets);
    basegui::Common::clearLayout(nullptr, true);
    QCOMPARE(layout->count(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (QPointer<QWidget> const& w : widgets) {
        QCOMPARE(w.isNull(), deleteWidgets);
        if (w) {
            QCOMPARE(w->parentWidget(), &host);   // still the host's, just not laid out
            layout->addWidget(w);
        }
    }
}

void TstKitCommon::clearGridLayout()
{
    QWidget host;
    auto* grid = new QGridLayout(&host);
    QList<QPointer<QWidget>> widgets;
    for (int i = 0; i < 6; ++i) {
        widgets << new QWidget;
        grid->addWidget(widgets.last(), i / 3, i % 3);
    }
    grid->setRowStretch(1, 5);
    basegui::Common::clearGridLayout(grid);
    basegui::Common::clearGridLayout(nullptr);
    QCOMPARE(grid->count(), 0);
    QCOMPARE(grid->rowStretch(1), 0);
    for (QPointer<QWidget> const& w : widgets)
        QVERIFY(!w.isNull());
}

void TstKitCommon::readQssFile()
{
    QTemporaryDir dir;
    QByteArray const qss = "/* 首页 */\n#m_pLabelTitle{color:#333444;}\n";
    auto write = [&dir](QString const& name, QByteArray const& content) {
        QFile file(dir.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    };
    write(QStringLiteral("a.qss"), qss);
    write(QStringLiteral("big.qss"), QByteArray(1024 * 1024 + 1, ' '));
    QCOMPARE(basegui::Common::readQssFile(dir.filePath(QStringLiteral("a.qss"))), QString::fromUtf8(qss));
    QVERIFY(basegui::Common::readQssFile(dir.filePath(QStringLiteral("big.qss"))).isEmpty());
    QVERIFY(basegui::Common::readQssFile(dir.filePath(QStringLiteral("none.qss"))).isEmpty());
    QVERIFY(basegui::Common::readQssFile(dir.path()).isEmpty());
}

void TstKitCommon::setWidgetMidPos()
{
    QWidget parent;
    parent.resize(400, 300);
    auto* child = new QWidget(&parent);
    child->resize(100, 50);
    basegui::Common::setWidgetMidPos(child, &parent, QPoint(50, 50));
    QCOMPARE(child->pos(), QPoint(200, 175));
    basegui::Common::setWidgetMidPos(nullptr, &parent, QPoint(0, 0));

    // Without a parent: the middle of the screen.
    QWidget window;
    window.resize(200, 100);
    basegui::Common::setWidgetMidPos(&window, nullptr, QPoint(0, 0));
    QCOMPARE(window.frameGeometry().center(), QGuiApplication::primaryScreen()->availableGeometry().center());
}

void TstKitCommon::labelFitting_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("fontPx");    // 0: LabelWidthAdjustText, else TextWidthAdjustLabel
    QTest::addColumn<int>("reserve");
    QTest::addColumn<bool>("elided");   // in an 80 px label

    QTest::newRow("long") << kLong << 0 << 0 << true;
    QTest::newRow("short") << QStringLiteral("1.0") << 0 << 0 << false;
    QTest::newRow("markup stays text") << QStringLiteral("<br>") << 0 << 0 << false;
    QTest::newRow("font size given, long") << kLong << 16 << 0 << true;
    QTest::newRow("fits until reserve") << QStringLiteral("abcdefgh") << 12 << 60 << true;
    QTest::newRow("reserve, still fits") << QStringLiteral("ab") << 12 << 40 << false;
}

void TstKitCommon::labelFitting()
{
    QFETCH(QString, text);
    QFETCH(int, fontPx);
    QFETCH(int, reserve);
    QFETCH(bool, elided);
    CQLabel label;
    label.setFixedSize(80, 20);
    if (fontPx == 0)
        CQLabel::LabelWidthAdjustText(&label, text, Qt::ElideMiddle);
    else
        CQLabel::TextWidthAdjustLabel(&label, fontPx, text, Qt::ElideRight, reserve);

    QCOMPARE(label.text() != text, elided);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QCOMPARE(CQLabel::fullText(&label), text);
    QCOMPARE(label.toolTip(), elided ? text : QString());
    if (elided) {
        QVERIFY(label.text().contains(QChar(0x2026)));
        QFont font = label.font();
        if (fontPx > 0)
            font.setPixelSize(fontPx);
        QVERIFY(QFontMetrics(font).horizontalAdvance(label.text()) <= 80 - reserve);
    }
}

void TstKitCommon::labelTipHandling()
{
    QLabel label;   // the helpers work on any QLabel
    label.setFixedSize(80, 20);
    label.setToolTip(QStringLiteral("owner's tip"));
    CQLabel::LabelWidthAdjustText(&label, QStringLiteral("short"));
    QCOMPARE(label.toolTip(), QStringLiteral("owner's tip"));   // not ours to clear
    CQLabel::LabelWidthAdjustText(&label, kLong);
    QCOMPARE(label.toolTip(), kLong);
    CQLabel::LabelWidthAdjustText(&label, QStringLiteral("short"));
    QVERIFY(label.toolTip().isEmpty());   // our own tip goes with the elision

    // A cut text that looks like markup is shown in its tip as written.
    QString const markup = QStringLiteral("<img src=x><b>") + kLong;
    CQLabel::LabelWidthAdjustText(&label, markup);
    QVERIFY(label.toolTip().contains(QStringLiteral("&lt;img src=x&gt;&lt;b&gt;")));

    CQLabel::LabelWidthAdjustText(nullptr, kLong);
    CQLabel::TextWidthAdjustLabel(nullptr, 16, kLong, Qt::ElideRight, 0);
    QVERIFY(CQLabel::fullText(nullptr).isEmpty());
}

void TstKitCommon::labelRefitsOnResize()
{
    CQLabel label;
    label.resize(80, 20);
    label.show();   // hidden widgets get their resize events only when shown
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    CQLabel::LabelWidthAdjustText(&label, kLong);
    QVERIFY(label.text() != kLong);
    label.resize(2000, 20);
    QCOMPARE(label.text(), kLong);
    QVERIFY(label.toolTip().isEmpty());
    // A text set directly by the owner is left alone.
    label.setText(QStringLiteral("own"));
    label.resize(10, 20);
    QCOMPARE(label.text(), QStringLiteral("own"));
}

void TstKitCommon::multiFontEscaping_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("numberStyle");
    QTest::addColumn<int>("numberPx");   // the size the rich text really uses
    QString const quoted = QStringLiteral("font-family:\"Noto Sans CJK SC\";font-size:18px;color:#333444;");
    QTest::newRow("plain number") << "128" << quoted << 18;
    QTest::newRow("markup in text") << "<b>1</b>" << quoted << 18;
    QTest::newRow("entity in text") << "&amp;&lt;" << quoted << 18;
    // The stray quote stays inside the style, which is then no valid CSS and
    // is ignored as a whole: no size, and above all no image element.
    QTest::newRow("quote breaking out of style") << "7" << QStringLiteral("font-size:18px;\"><img src=x>") << -1;
}

void TstKitCommon::multiFontEscaping()
{
    QFETCH(QString, number);
    QFETCH(QString, numberStyle);
    QFETCH(int, numberPx);
    QString const small = QStringLiteral("font-size:14px;color:#515260;");
    CQLabelMultiFontSize label(3);
    label.updateContent(0, QStringLiteral("已累计陪伴"), small);
    label.updateContent(1, number, numberStyle);
    label.updateContent(2, QStringLiteral("天"), small);

    QCOMPARE(label.textFormat(), Qt::RichText);
    QCOMPARE(label.pieceText(1), number);
    QTextDocument doc;
    doc.setHtml(label.text());
    QCOMPARE(doc.toPlainText(), QStringLiteral("已累计陪伴") + number + QStringLiteral("天"));
    QVERIFY(!label.text().contains(QStringLiteral("<img")));

    // Each piece keeps its own size: the styles survive escaping.
    QMap<QString, int> sizes;
    for (QTextBlock::iterator it = doc.begin().begin(); !it.atEnd(); ++it)
        sizes.insert(it.fragment().text(), it.fragment().charFormat().font().pixelSize());
    QCOMPARE(sizes.value(QStringLiteral("已累计陪伴")), 14);
    QCOMPARE(sizes.value(number), numberPx);
}

void TstKitCommon::multiFontBadIndex()
{
    for (int index : { -1, 3, 1 << 30 }) {
        CQLabelMultiFontSize label(3);
        label.updateContent(index, QStringLiteral("x"), QStringLiteral("color:red;"));
        QVERIFY(label.plainText().isEmpty());
        QVERIFY(label.pieceText(index).isEmpty());
    }
    QCOMPARE(CQLabelMultiFontSize(-2).count(), 0);
}

QTEST_MAIN(TstKitCommon)
#include "tst_kit_common.moc"
