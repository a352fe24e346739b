// The plugin's compiled resources: every image and style sheet the code names
// is there and loads.

#include <QDirIterator>
#include <QFile>
#include <QIcon>
#include <QImageReader>
#include <QPixmap>
#include <QRegularExpression>
#include <QSet>
#include <QWidget>
#include <QtTest>

namespace {
QStringList g_styleWarnings;

void collectStyleWarnings(QtMsgType type, QMessageLogContext const&, QString const& message)
{
    if (type == QtWarningMsg && message.contains(QStringLiteral("stylesheet"), Qt::CaseInsensitive))
        g_styleWarnings << message;
}

QString sourceDir()
{
    return qEnvironmentVariable("QUORIX_SOURCE_DIR");
}

// Resource paths written in the plugin's sources, and the images its style
// sheets point at.
QSet<QString> referencedResources()
{
    QSet<QString> found;
    static QRegularExpression const literal(QStringLiteral("\":(/(?:img|qss)/[^\"\\s]+)\""));
    static QRegularExpression const url(QStringLiteral("url\\(\\s*\"?:(/img/[^\")\\s]+)\"?\\s*\\)"));
    QDirIterator it(sourceDir() + QStringLiteral("/plugins/base"), {"*.cpp", "*.h", "*.qss"}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QString const text = QString::fromUtf8(file.readAll());
        for (QRegularExpression const* re : {&literal, &url}) {
            auto matches = re->globalMatch(text);
            while (matches.hasNext())
                found.insert(QLatin1Char(':') + matches.next().captured(1));
        }
    }
    // A bare prefix such as ":/img/" in a comment or a format string is no file.
    found.remove(QStringLiteral(":/img/"));
    found.remove(QStringLiteral(":/qss/"));
    return found;
}
} // namespace

class TstResources : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
#ifdef UI_BASE_HAS_RESOURCES
        Q_INIT_RESOURCE(ui_base);
#else
        QSKIP("the base plugin was built without its resources");
#endif
    }

    void namedResourcesLoad_data()
    {
        QTest::addColumn<QString>("path");
        QStringList const required = {
            ":/img/setting.png", ":/img/about.png", ":/img/quit.png", ":/img/test.png", ":/img/logo.ico",
            ":/img/logo.png", ":/img/commonSettingLogo.png",
            ":/img/authStatus/normal_normal.png", ":/img/authStatus/normal_hover.png",
            ":/img/authStatus/normal_pressed.png", ":/img/authStatus/error_normal.png",
            ":/img/authStatus/error_hover.png", ":/img/authStatus/error_pressed.png",
            ":/qss/homePageWidget.qss", ":/qss/MenuWidget.qss", ":/qss/messageTip.qss", ":/qss/cwinabout.qss",
            ":/qss/myStackedWins1.qss", ":/qss/settingCentreWidget.qss", ":/qss/closeMainPanelSettingSubItem.qss",
            ":/qss/uniNoticeMsg.qss", ":/qss/devicePopWin.qss", ":/qss/devicePopSubWin.qss", ":/qss/bootWin.qss",
            ":/qss/assetArea.qss", ":/qss/assetAreaLoading.qss", ":/qss/assetAreaWidget.qss"};
        QSet<QString> all(required.begin(), required.end());
        if (!sourceDir().isEmpty())
            all.unite(referencedResources());
        QStringList sorted = all.values();
        sorted.sort();
        for (QString const& path : sorted)
            QTest::newRow(qPrintable(path)) << path;
    }
    void namedResourcesLoad()
    {
        QFETCH(QString, path);
        QVERIFY2(QFile::exists(path), qPrintable(path + " is not in the resources"));
        if (path.startsWith(QLatin1String(":/img/"))) {
            QVERIFY(!QPixmap(path).isNull());
            QVERIFY(!QIcon(path).isNull());
        } else {
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QVERIFY(!file.readAll().trimmed().isEmpty());
        }
    }

    void trayIconCarriesSeveralSizes()
    {
        QImageReader reader(QStringLiteral(":/img/logo.ico"));
        QVERIFY(reader.imageCount() >= 4);
        QList<QSize> const sizes = QIcon(QStringLiteral(":/img/logo.ico")).availableSizes();
        QVERIFY(sizes.contains(QSize(16, 16)));
        QVERIFY(sizes.contains(QSize(256, 256)));
    }

    void imagesAreNotBlank()
    {
        QDirIterator it(QStringLiteral(":/img"), {"*.png"}, QDir::Files, QDirIterator::Subdirectories);
        int checked = 0;
        while (it.hasNext()) {
            QImage const image = QImage(it.next()).convertToFormat(QImage::Format_ARGB32);
            int opaque = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    opaque += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
            }
            QVERIFY2(opaque * 20 > image.width() * image.height(), qPrintable(it.filePath() + " is nearly empty"));
            ++checked;
        }
        QVERIFY(checked >= 10);
    }

    void styleSheetsParse()
    {
        QDirIterator it(QStringLiteral(":/qss"), {"*.qss"}, QDir::Files);
        int checked = 0;
        while (it.hasNext()) {
            QString const path = it.next();
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            g_styleWarnings.clear();
            QtMessageHandler const previous = qInstallMessageHandler(collectStyleWarnings);
            QWidget w;
            w.setStyleSheet(QString::fromUtf8(file.readAll()));
            w.ensurePolished();
            qInstallMessageHandler(previous);
            QVERIFY2(g_styleWarnings.isEmpty(), qPrintable(path + ": " + g_styleWarnings.join(QLatin1Char(' '))));
            ++checked;
        }
        QVERIFY(checked >= 14);
    }
};

QTEST_MAIN(TstResources)
#include "tst_resources.moc"
