// Version status card: library versions from the upgrade bridge.

#include "bridgerecords.h"
#include "versionStatusCardWin.h"
#include "versionWin.h"

#include <QtTest>

namespace {
_VERINFO_ entry(int kind, QString const& version)
{
    _VERINFO_ info;
    info.kind = kind;
    info.version = version;
    return info;
}
} // namespace


class TstTargetsVersion : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
#ifdef UI_BASE_HAS_RESOURCES
        Q_INIT_RESOURCE(ui_base);
#endif
        qputenv("QUORIX_LOG_STDERR", "0");
    }

    void filledFromTheBridge()
    {
        VersionStatusCardWin card;
        QCOMPARE(card.title(), QStringLiteral("版本状态"));
        // The card asks on construction; the simulated backend answers.
        QTRY_VERIFY(card.virusVersion() != QStringLiteral("--"));
        QTRY_VERIFY(card.vulnerabilityVersion() != QStringLiteral("--"));
        card.slot_checkUpgradeInfo(QString(), {entry(1, "old"), entry(4, "old")});
        card.updateVersion();
        QTRY_VERIFY(card.virusVersion() != QStringLiteral("old"));
    }

    void filling_data()
    {
        QTest::addColumn<QList<_VERINFO_>>("versions");
        QTest::addColumn<QString>("virus");
        QTest::addColumn<QString>("vulnerability");
        QTest::newRow("both") << QList<_VERINFO_>{entry(1, "2024.05.01"), entry(4, "2024.04.30")} << "2024.05.01"
                              << "2024.04.30";
        QTest::newRow("empty list changes nothing") << QList<_VERINFO_>{} << "v0" << "u0";
        QTest::newRow("other kinds skipped") << QList<_VERINFO_>{entry(2, "x"), entry(3, "y"), entry(7, "z")} << "v0"
                                             << "u0";
        QTest::newRow("empty version shows dashes") << QList<_VERINFO_>{entry(1, "")} << "--" << "u0";
        QTest::newRow("last of a kind wins") << QList<_VERINFO_>{entry(4, "a"), entry(4, "b"), entry(1, "c")} << "c"
                                             << "b";
    }
    void filling()
    {
        QFETCH(QList<_VERINFO_>, versions);
        QFETCH(QString, virus);
        QFETCH(QString, vulnerability);
        VersionStatusCardWin card;
        // Let the card's own request come back first, then set a known start.
        QTRY_VERIFY(card.virusVersion() != QStringLiteral("--"));
        card.slot_checkUpgradeInfo(QStringLiteral("user"), {entry(1, "v0"), entry(4, "u0")});
        card.slot_checkUpgradeInfo(QStringLiteral("user"), versions);
        QCOMPARE(card.virusVersion(), virus);
        QCOMPARE(card.vulnerabilityVersion(), vulnerability);
    }

    void blocksStartEmpty()
    {
        VersionWin block;
        QCOMPARE(block.version(), QStringLiteral("--"));
        QCOMPARE(block.size(), QSize(116, 36));
        block.setVersion(QStringLiteral("2024.05.01"));
        block.setVersion(QString());
        QCOMPARE(block.version(), QStringLiteral("--"));
    }
};

QTEST_MAIN(TstTargetsVersion)
#include "tst_targets_version.moc"
