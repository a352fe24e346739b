#include "cqcloudbrainlabel.h"
#include "cqlabel.h"
#include "cqlabelmultifontsize.h"
#include "cqlogotitle.h"
#include "cqtitlebuttons.h"

#include <QSignalSpy>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

// The kit's labels, logo and title-bar buttons.
class TstKitWidgets : public QObject
{
    Q_OBJECT

private slots:
    void labelFitting_data();
    void labelFitting();
    void labelTipHandling();
    void labelRefitsOnResize();
    void labelNullIgnored();
    void multiFontEscaping_data();
    void multiFontEscaping();
    void multiFontBadIndex_data();
    void multiFontBadIndex();
    void cloudBrainText_data();
    void cloudBrainText();
    void logoGeometry_data();
    void logoGeometry();
    void logoPaintsMark();
    void titleButtons_data();
    void titleButtons();
};

namespace {

QString const kLong = QString::fromUtf8("这是一段非常非常长的客户端版本说明文字，无论如何也放不进这么窄的标签");

} // namespace

void TstKitWidgets::labelFitting_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("fontPx");    // 0: LabelWidthAdjustText, else TextWidthAdjustLabel
    QTest::addColumn<int>("reserve");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("elided");

    QTest::newRow("long, right") << kLong << 80 << 0 << 0 << int(Qt::ElideRight) << true;
    QTest::newRow("long, middle") << kLong << 80 << 0 << 0 << int(Qt::ElideMiddle) << true;
    QTest::newRow("short") << QStringLiteral("1.0") << 80 << 0 << 0 << int(Qt::ElideRight) << false;
    QTest::newRow("empty") << QString() << 80 << 0 << 0 << int(Qt::ElideRight) << false;
    QTest::newRow("markup stays text") << QStringLiteral("<b>bold</b>") << 300 << 0 << 0 << int(Qt::ElideRight) << false;
    QTest::newRow("font size given, long") << kLong << 120 << 16 << 0 << int(Qt::ElideRight) << true;
    QTest::newRow("fits until reserve") << QStringLiteral("abcdefgh") << 200 << 12 << 180 << int(Qt::ElideRight) << true;
    QTest::newRow("reserve, still fits") << QStringLiteral("ab") << 200 << 12 << 100 << int(Qt::ElideRight) << false;
}

void TstKitWidgets::labelFitting()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QFETCH(int, fontPx);
    QFETCH(int, reserve);
    QFETCH(int, mode);
    QFETCH(bool, elided);
    CQLabel label;
    label.setFixedSize(width, 20);
    if (fontPx == 0)
        CQLabel::LabelWidthAdjustText(&label, text, Qt::TextElideMode(mode));
    else
        CQLabel::TextWidthAdjustLabel(&label, fontPx, text, Qt::TextElideMode(mode), reserve);

    QCOMPARE(label.text() != text, elided);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QCOMPARE(CQLabel::fullText(&label), text);
    if (elided) {
        QVERIFY(label.text().contains(QChar(0x2026)));
        QCOMPARE(label.toolTip(), text);
        QFont font = label.font();
        if (fontPx > 0)
            font.setPixelSize(fontPx);
        QVERIFY(QFontMetrics(font).horizontalAdvance(label.text()) <= width - reserve);
    } else {
        QVERIFY(label.toolTip().isEmpty());
    }
}

void TstKitWidgets::labelTipHandling()
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
}

void TstKitWidgets::labelRefitsOnResize()
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

void TstKitWidgets::labelNullIgnored()
{
    CQLabel::LabelWidthAdjustText(nullptr, kLong);
    CQLabel::TextWidthAdjustLabel(nullptr, 16, kLong, Qt::ElideRight, 0);
    QVERIFY(CQLabel::fullText(nullptr).isEmpty());
}

void TstKitWidgets::multiFontEscaping_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("numberStyle");
    QTest::addColumn<int>("numberPx");   // the size the rich text really uses
    QString const quoted = QStringLiteral("font-family:\"Noto Sans CJK SC\";font-size:18px;color:#333444;font-weight:500;");
    QTest::newRow("plain number") << "128" << quoted << 18;
    QTest::newRow("markup in text") << "<b>1</b>" << quoted << 18;
    QTest::newRow("entity in text") << "&amp;&lt;" << quoted << 18;
    // The stray quote stays inside the style, which is then no valid CSS and
    // is ignored as a whole: no size, and above all no image element.
    QTest::newRow("quote breaking out of style") << "7" << QStringLiteral("font-size:18px;\"><img src=x>") << -1;
}

void TstKitWidgets::multiFontEscaping()
{
    QFETCH(QString, number);
    QFETCH(QString, numberStyle);
    QFETCH(int, numberPx);
    QString const small = QStringLiteral("font-family:\"Noto Sans CJK SC\";font-size:14px;color:#515260;");
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

void TstKitWidgets::multiFontBadIndex_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("expectedCount");
    QTest::newRow("negative index") << 3 << -1 << 3;
    QTest::newRow("index == count") << 3 << 3 << 3;
    QTest::newRow("huge index") << 3 << 1 << 3;
    QTest::newRow("zero pieces") << 0 << 0 << 0;
    QTest::newRow("negative count") << -2 << 0 << 0;
}

void TstKitWidgets::multiFontBadIndex()
{
    QFETCH(int, count);
    QFETCH(int, index);
    QFETCH(int, expectedCount);
    CQLabelMultiFontSize label(count);
    QCOMPARE(label.count(), expectedCount);
    label.updateContent(index == 1 ? 1 << 30 : index, QStringLiteral("x"), QStringLiteral("color:red;"));
    QVERIFY(label.plainText().isEmpty());
    QVERIFY(label.pieceText(index).isEmpty());
}

void TstKitWidgets::cloudBrainText_data()
{
    QTest::addColumn<int>("days");
    QTest::addColumn<QString>("text");
    QTest::newRow("initial -1") << -1 << QString::fromUtf8("云脑防护 -- 天");
    QTest::newRow("very negative") << -100 << QString::fromUtf8("云脑防护 -- 天");
    QTest::newRow("zero") << 0 << QString::fromUtf8("云脑防护 0 天");
    QTest::newRow("a year") << 365 << QString::fromUtf8("云脑防护 365 天");
}

void TstKitWidgets::cloudBrainText()
{
    QFETCH(int, days);
    QFETCH(QString, text);
    CQCloudBrainLabel label;
    QCOMPARE(label.displayText(), QString::fromUtf8("云脑防护 -- 天"));
    int const before = label.sizeHint().width();
    label.slot_updateDays(days);
    QCOMPARE(label.displayText(), text);
    QCOMPARE(label.days(), days < 0 ? -1 : days);
    if (days >= 100)
        QVERIFY(label.sizeHint().width() > before);
    QCOMPARE(label.sizeHint().height(), 22);
}

void TstKitWidgets::logoGeometry_data()
{
    QTest::addColumn<int>("w");
    QTest::addColumn<int>("h");
    QTest::addColumn<int>("textWidth");   // -1: standard logo
    QTest::addColumn<QString>("text");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("elided");
    QTest::newRow("title bar, standard") << 29 << 29 << -1 << QString() << QSize(29, 29) << false;
    QTest::newRow("about, standard") << 64 << 64 << -1 << QString() << QSize(64, 64) << false;
    QTest::newRow("title bar, short name") << 29 << 29 << 92 << QStringLiteral("天擎") << QSize(29 + 7 + 92, 29) << false;
    QTest::newRow("title bar, long name") << 29 << 29 << 92 << QStringLiteral("Quorix终端安全管理系统") << QSize(128, 29) << true;
    QTest::newRow("about, long name") << 64 << 64 << 300 << QStringLiteral("Quorix终端安全管理系统") << QSize(64 + 16 + 300, 64)
                                      << false;
    QTest::newRow("bad sizes clamped") << -3 << 0 << -1 << QString() << QSize(1, 1) << false;
}

void TstKitWidgets::logoGeometry()
{
    QFETCH(int, w);
    QFETCH(int, h);
    QFETCH(int, textWidth);
    QFETCH(QString, text);
    QFETCH(QSize, size);
    QFETCH(bool, elided);
    QScopedPointer<CQLogoTitle> logo(textWidth < 0 ? new CQLogoTitle(w, h, 0, 0) : new CQLogoTitle(w, h, textWidth, 0, text));
    QCOMPARE(logo->size(), size);
    QCOMPARE(logo->isTextLogo(), textWidth >= 0);
    QCOMPARE(logo->text(), text);
    if (textWidth < 0)
        return;
    QCOMPARE(logo->shownText() != text, elided);
    QCOMPARE(logo->toolTip().isEmpty(), !elided);
    QVERIFY(logo->textPixelSize() >= 10);
}

void TstKitWidgets::logoPaintsMark()
{
    CQLogoTitle logo(64, 64, 0, 0);
    QImage const image = logo.grab().toImage();
    // Inside the shield, above the check: the accent colour family.
    QColor const body = image.pixelColor(32, 14);
    QVERIFY2(body.blue() > 200 && body.red() < 120, qPrintable(body.name()));
    // Outside the shield: nothing painted.
    QCOMPARE(image.pixelColor(1, 62).alpha(), 0);
    CQLogoTitle named(29, 29, 92, 0, QStringLiteral("天\n擎"));
    QCOMPARE(named.text(), QStringLiteral("天 擎"));
}

void TstKitWidgets::titleButtons_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<int>("expectedStyle");
    QTest::newRow("drop-down, light bar") << 0 << 1 << "m_pBtnDropDown" << 1;
    QTest::newRow("minimise, light bar") << 1 << 1 << "m_pBtnMin" << 1;
    QTest::newRow("close, light bar") << 2 << 1 << "m_pBtnClose" << 1;
    QTest::newRow("close, accent bar") << 2 << 0 << "m_pBtnClose" << 0;
    QTest::newRow("unknown style") << 1 << 7 << "m_pBtnMin" << 1;
}

void TstKitWidgets::titleButtons()
{
    QFETCH(int, kind);
    QFETCH(int, style);
    QFETCH(QString, objectName);
    QFETCH(int, expectedStyle);
    QWidget bar;
    CQTitleButton* button = nullptr;
    if (kind == 0)
        button = new CQDropDownBtn(style, &bar);
    else if (kind == 1)
        button = new CQMinBtn(style, &bar);
    else
        button = new CQCloseBtn(style, &bar);
    QCOMPARE(button->objectName(), objectName);
    QCOMPARE(button->style(), expectedStyle);
    QCOMPARE(button->size(), QSize(22, 22));
    QCOMPARE(button->focusPolicy(), Qt::NoFocus);
    QSignalSpy clicked(button, &QPushButton::clicked);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);

    // The glyph is drawn: the button is not blank.
    QImage const image = button->grab().toImage();
    bool painted = false;
    for (int y = 0; y < image.height() && !painted; ++y) {
        for (int x = 0; x < image.width() && !painted; ++x)
            painted = image.pixelColor(x, y).alpha() > 0 && image.pixelColor(x, y) != image.pixelColor(0, 0);
    }
    QVERIFY(painted);
}

QTEST_MAIN(TstKitWidgets)
#include "tst_kit_widgets.moc"
