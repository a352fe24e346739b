#include "constconfig.h"
#include "dravoguiconfig.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

// Branding configuration: where it is read from, what a broken file gives.
class TstKitConfig : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void branding_data();
    void branding();
    void overrideStdStringAndReload();
    void paths();

private:
    void writeFile(QString const& path, QByteArray const& content);
    QByteArray m_savedRoot;
};

namespace {

QString const kKeep = QStringLiteral("keep");
QByteArray const kChinese = "[branding]\ntheme=blue\nproductName=天擎终端安全\nlogoIconPath=/opt/q/logo.png\nhomePageContent=守护每一台终端\n";

} // namespace

void TstKitConfig::init()
{
    m_savedRoot = qgetenv("QUORIX_ROOT");
    qunsetenv("QUORIX_GUI_CONFIG");
    DravoGuiConfig::setConfigPath(QString());
}

void TstKitConfig::cleanup()
{
    qputenv("QUORIX_ROOT", m_savedRoot);
    init();
}

void TstKitConfig::writeFile(QString const& path, QByteArray const& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void TstKitConfig::branding_data()
{
    // Where files are: "env" (QUORIX_GUI_CONFIG), "installed" (<root>/etc/branding.ini); "env-missing" names a file that
    // is not there.
    QTest::addColumn<QStringList>("places");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("ret");
    QTest::addColumn<QStringList>("values");   // theme, productName, logoIconPath, homePageContent

    QStringList const defaults{"default", "Quorix终端安全管理系统", ":/img/logo.ico", ""};
    QStringList const chinese{"blue", "天擎终端安全", "/opt/q/logo.png", "守护每一台终端"};
    QStringList const untouched{kKeep, kKeep, kKeep, kKeep};
    int const unreadable = DravoGuiConfig::ErrUnreadable;
    int const malformed = DravoGuiConfig::ErrMalformed;

    QTest::newRow("no file: defaults") << QStringList{} << QByteArray() << 0 << defaults;
    QTest::newRow("env file") << QStringList{"env"} << kChinese << 0 << chinese;
    QTest::newRow("installed file") << QStringList{"installed"} << kChinese << 0 << chinese;
    QTest::newRow("env wins over installed") << QStringList{"installed", "env"} << kChinese << 0 << chinese;
    QTest::newRow("missing or blank keys take defaults")
        << QStringList{"env"} << QByteArray("[branding]\ntheme=custom\nproductName=\nhomePageContent= \t \n") << 0
        << QStringList{"custom", defaults[1], defaults[2], defaults[3]};
    QTest::newRow("BOM, CRLF, other sections, padding")
        << QStringList{"env"} << QByteArray("\xEF\xBB\xBF[branding]\r\nproductName =  乙 \r\n[other]\r\ntheme=x\r\n")
        << 0 << QStringList{defaults[0], "乙", defaults[2], defaults[3]};
    QTest::newRow("named file missing, installed present") << QStringList{"installed", "env-missing"} << kChinese << unreadable
                                                           << untouched;
    QTest::newRow("not UTF-8 (GBK)") << QStringList{"env"} << QByteArray("[branding]\nproductName=\xD6\xD0\xCE\xC4\n") << malformed
                                     << untouched;
    QTest::newRow("larger than 1 MiB") << QStringList{"env"} << (kChinese + QByteArray(1024 * 1024, '#')) << malformed
                                       << untouched;
}

void TstKitConfig::branding()
{
    QFETCH(QStringList, places);
    QFETCH(QByteArray, content);
    QFETCH(int, ret);
    QFETCH(QStringList, values);

    QTemporaryDir root;
    QVERIFY(root.isValid());
    qputenv("QUORIX_ROOT", root.path().toUtf8());
    for (QString const& place : places) {
        if (place == QLatin1String("installed")) {
            // Beside another source the installed file says something else,
            // so the row shows which one was read.
            QByteArray const installed = places.size() > 1 ? QByteArray("[branding]\ntheme=installed\n") : content;
            writeFile(root.filePath(QStringLiteral("etc/branding.ini")), installed);
        } else if (place == QLatin1String("env")) {
            writeFile(root.filePath(QStringLiteral("env.ini")), content);
            qputenv("QUORIX_GUI_CONFIG", root.filePath(QStringLiteral("env.ini")).toUtf8());
        } else {
            qputenv("QUORIX_GUI_CONFIG", root.filePath(QStringLiteral("absent.ini")).toUtf8());
        }
    }
    DravoGuiConfig::reload();

    QString theme = kKeep, name = kKeep, logo = kKeep, home = kKeep;
    QCOMPARE(DravoGuiConfig::theme(theme), ret);
    QCOMPARE(DravoGuiConfig::productName(name), ret);
    QCOMPARE(DravoGuiConfig::logoIconPath(logo), ret);
    QCOMPARE(DravoGuiConfig::homePageContent(home), ret);
    QCOMPARE(DravoGuiConfig::status(), ret);
    QCOMPARE((QStringList{theme, name, logo, home}), values);
}

void TstKitConfig::overrideStdStringAndReload()
{
    QTemporaryDir root;
    QString const path = root.filePath(QStringLiteral("b.ini"));
    writeFile(path, kChinese);
    qputenv("QUORIX_GUI_CONFIG", root.filePath(QStringLiteral("absent.ini")).toUtf8());
    DravoGuiConfig::setConfigPath(path);   // wins over the environment
    std::string name = "keep";
    QCOMPARE(DravoGuiConfig::productName(name), 0);
    QCOMPARE(name, std::string("天擎终端安全"));

    writeFile(path, "[branding]\nproductName=two\n");
    QCOMPARE(DravoGuiConfig::productName(name), 0);
    QCOMPARE(name, std::string("天擎终端安全"));   // read once, until reload
    DravoGuiConfig::reload();
    QCOMPARE(DravoGuiConfig::productName(name), 0);
    QCOMPARE(name, std::string("two"));

    DravoGuiConfig::setConfigPath(root.filePath(QStringLiteral("absent.ini")));
    std::string logo = "mine";
    QCOMPARE(DravoGuiConfig::logoIconPath(logo), int(DravoGuiConfig::ErrUnreadable));
    QCOMPARE(logo, std::string("mine"));
}

void TstKitConfig::paths()
{
    qputenv("QUORIX_ROOT", "/opt/quorix/lib/../");
    QCOMPARE(ConstConfig::installRoot(), QStringLiteral("/opt/quorix"));
    // This program lives in <build>/tests, not in a bin/ folder: its own folder.
    qunsetenv("QUORIX_ROOT");
    QCOMPARE(ConstConfig::installRoot(), QCoreApplication::applicationDirPath());

    QByteArray const savedConfig = qgetenv("XDG_CONFIG_HOME");
    QByteArray const savedHome = qgetenv("HOME");
    qputenv("HOME", "/home/tester");
    qputenv("XDG_CONFIG_HOME", "relative/ignored");
    QCOMPARE(ConstConfig::userConfigDir(), QStringLiteral("/home/tester/.config/quorix"));
    qputenv("XDG_CONFIG_HOME", "/xdg/config");
    QCOMPARE(ConstConfig::userConfigDir(), QStringLiteral("/xdg/config/quorix"));
    qputenv("XDG_CONFIG_HOME", savedConfig);
    qputenv("HOME", savedHome);
}

QTEST_GUILESS_MAIN(TstKitConfig)
#include "tst_kit_config.moc"
