// Every image and style sheet the plugin's sources name is in its compiled
// resources and loads.

#include <QDirIterator>
#include <QFile>
#include <QIcon>
#include <QPixmap>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

// Resource paths written in the plugin's sources, and the images its style sheets point at.
QStringList referencedResources()
{
    // Shipped for the other plugins' windows, named by none of these sources.
    QSet<QString> found = {":/img/logo.png", ":/qss/uniNoticeMsg.qss", ":/qss/devicePopWin.qss",
                           ":/qss/devicePopSubWin.qss", ":/qss/bootWin.qss", ":/qss/assetArea.qss",
                           ":/qss/assetAreaLoading.qss", ":/qss/assetAreaWidget.qss"};
    QRegularExpression const literal(QStringLiteral("\":(/(?:img|qss)/[^\"\\s]+)\""));
    QRegularExpression const url(QStringLiteral("url\\(\\s*\"?:(/img/[^\")\\s]+)\"?\\s*\\)"));
    QDirIterator it(qEnvironmentVariable("QUORIX_SOURCE_DIR") + QStringLiteral("/plugins/base"),
                    {"*.cpp", "*.h", "*.qss"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        QString const text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
        for (QRegularExpression const* re : {&literal, &url}) {
            for (auto matches = re->globalMatch(text); matches.hasNext();)
                found.insert(QLatin1Char(':') + matches.next().captured(1));
        }
    }
    // A bare prefix in a comment or a format string is no file.
    found.remove(QStringLiteral(":/img/"));
    found.remove(QStringLiteral(":/qss/"));
    QStringList sorted = found.values();
    sorted.sort();
    return sorted;
}

} // namespace

class TstResources : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Q_INIT_RESOURCE(ui_base); }

    void namedResourcesLoad_data()
    {
        QTest::addColumn<QString>("path");
        QStringList const paths = referencedResources();
        QVERIFY2(paths.size() >= 28, "the plugin's sources were not found");
        for (QString const& path : paths)
            QTest::newRow(qPrintable(path)) << path;
    }
    void namedResourcesLoad()
    {
        QFETCH(QString, path);
        QVERIFY2(QFile::exists(path), qPrintable(path + " is not in the resources"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly) && !file.readAll().trimmed().isEmpty());
        if (path.startsWith(QLatin1String(":/img/")))
            QVERIFY(!QPixmap(path).isNull() && !QIcon(path).isNull());
    }
};

QTEST_MAIN(TstResources)
#include "tst_resources.moc"
