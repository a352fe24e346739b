#include "simulatedbackend.h"

#include "clogdebug.h"

#include <QCryptographicHash>
#include <QDir>
#include <QMutexLocker>
#include <QUuid>

namespace {

char const* const kModule = "platform/bridge/simulatedbackend";

QString const kClientVersion = QStringLiteral("3.0.2.7550");
QString const kVirusDataVersion = QStringLiteral("2026.11.20.01");
QString const kVulDataVersion = QStringLiteral("2026.11.18.02");
QString const kCommonTypeName = QStringLiteral("_SETTING_COMMON_");
QString const kCommonAliasName = QStringLiteral("SETTING_COMMON");

int const kVerifyKindExit = 1;
int const kPolicyPasswordRequired = 2;
int const kPolicyNoPassword = 1;
int const kLibVirus = 1;
int const kLibVulnerability = 4;
int const kLibAll = 7;

QByteArray sha256(QString const& text)
{
    return QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
}

// Runs through both buffers whatever they hold, so the time taken tells an
// attacker nothing about how much of a guess was right.
bool equalConstantTime(QByteArray const& a, QByteArray const& b)
{
    int const length = qMax(a.size(), b.size());
    unsigned char diff = a.size() == b.size() ? 0 : 1;
    for (int i = 0; i < length; ++i) {
        unsigned char const x = i < a.size() ? static_cast<unsigned char>(a.at(i)) : 0;
        unsigned char const y = i < b.size() ? static_cast<unsigned char>(b.at(i)) : 0;
        diff |= static_cast<unsigned char>(x ^ y);
    }
    return diff == 0;
}

_VERINFO_ libraryEntry(QString const& version, int kind)
{
    _VERINFO_ info;
    info.version = version;
    info.kind = kind;
    return info;
}

} // namespace

SimulatedBackend::SimulatedBackend(QString const& configDir, QObject* parent)
    : QuorixBackend(parent)
    , m_store(QDir(configDir.isEmpty() ? defaultConfigDir() : configDir).filePath(QStringLiteral("settings.ini")))
{
}

SimulatedBackend::~SimulatedBackend()
{
    BFLOG(BFLOG_DEBUG, kModule, "[SimulatedBackend] delete SimulatedBackend obj");
}

QString SimulatedBackend::defaultConfigDir()
{
    QString const own = qEnvironmentVariable("QUORIX_CONFIG_DIR");
    if (!own.isEmpty())
        return own;
    // The XDG rule: a relative XDG_CONFIG_HOME is invalid and ignored.
    QString const xdg = qEnvironmentVariable("XDG_CONFIG_HOME");
    QString const base = xdg.startsWith(QLatin1Char('/')) ? xdg : QDir::homePath() + QStringLiteral("/.config");
    return base + QStringLiteral("/quorix");
}

QString SimulatedBackend::settingsFilePath() const
{
    return m_store.filePath();
}

void SimulatedBackend::setToday(QDate const& today)
{
    QMutexLocker lock(&m_mutex);
    m_today = today;
}

void SimulatedBackend::ensureLoadedLocked()
{
    if (m_loaded)
        return;
    m_loaded = true;
    m_store.load();
}

QString SimulatedBackend::storedOrDefaultLocked(QString const& section, QString const& key, QString const& fallback)
{
    ensureLoadedLocked();
    QString const stored = m_store.value(section, key);
    return stored.isEmpty() ? fallback : stored;
}

QDate SimulatedBackend::firstRunDate()
{
    QMutexLocker lock(&m_mutex);
    ensureLoadedLocked();
    QDate const today = m_today.isValid() ? m_today : QDate::currentDate();
    QDate first = QDate::fromString(m_store.value(QStringLiteral("state"), QStringLiteral("firstRunDate")), Qt::ISODate);
    if (!first.isValid()) {
        first = today;
        m_store.setValue(QStringLiteral("state"), QStringLiteral("firstRunDate"), first.toString(Qt::ISODate));
        m_store.save();
    }
    return first;
}

bool SimulatedBackend::isReady()
{
    return true;
}

QString SimulatedBackend::clientVersion()
{
    QMutexLocker lock(&m_mutex);
    return storedOrDefaultLocked(QStringLiteral("versions"), QStringLiteral("client"), kClientVersion);
}

QString SimulatedBackend::virusDataVersion()
{
    QMutexLocker lock(&m_mutex);
    return storedOrDefaultLocked(QStringLiteral("versions"), QStringLiteral("virusData"), kVirusDataVersion);
}

unsigned int SimulatedBackend::guardDays()
{
    QDate const first = firstRunDate();
    QDate today;
    {
        QMutexLocker lock(&m_mutex);
        today = m_today.isValid() ? m_today : QDate::currentDate();
    }
    // The first day counts as a day of protection; a clock set back never
    // makes the count go below it.
    qint64 const days = first.daysTo(today);
    return days < 0 ? 1u : static_cast<unsigned int>(qMin<qint64>(days, 0xFFFFFFFEll) + 1);
}

quint64 SimulatedBackend::baseInfo()
{
    return static_cast<quint64>(guardDays());
}

int SimulatedBackend::requestWeakPasswdCheck()
{
    BFLOG(BFLOG_INFO, kModule, "[SimulatedBackend] weak password check requested, nothing weak found");
    return 0;
}

int SimulatedBackend::shutdown(int method)
{
    // A simulation must never power the machine off.
    BFLOG(BFLOG_INFO, kModule, "[SimulatedBackend] shutdown order (method %d) received, not carried out", method);
    return 0;
}

int SimulatedBackend::reboot()
{
    BFLOG(BFLOG_INFO, kModule, "[SimulatedBackend] reboot order received, not carried out");
    return 0;
}

void SimulatedBackend::trayMenuShown()
{
    BFLOG(BFLOG_DEBUG, kModule, "[SimulatedBackend] tray menu shown");
}

int SimulatedBackend::closeActionLocked()
{
    bool ok = false;
    int const value = storedOrDefaultLocked(QStringLiteral("common"), QStringLiteral("closeAction"), QString()).toInt(&ok);
    return ok && value >= 0 && value <= 2 ? value : kDefaultCloseAction;
}

__sSettingData SimulatedBackend::readSetting(QString const& typeName)
{
    __sSettingData data;
    data.name = typeName;
    if (typeName != kCommonTypeName && typeName != kCommonAliasName) {
        BFLOG(BFLOG_ERROR, kModule, "[SimulatedBackend] unknown setting [%s]", qUtf8Printable(typeName.left(64)));
        data.key = -1;
        return data;
    }
    _SETTING_COMMON_ common;
    {
        QMutexLocker lock(&m_mutex);
        common.closeAction = closeActionLocked();
    }
    data.key = 0;
    data.name = kCommonTypeName;
    data.value = QVariant::fromValue(common);
    return data;
}

bool SimulatedBackend::writeSetting(QVariant const& data)
{
    QVariant record = data;
    if (record.userType() == qMetaTypeId<__sSettingData>())
        record = record.value<__sSettingData>().value;
    if (record.userType() != qMetaTypeId<_SETTING_COMMON_>()) {
        BFLOG(BFLOG_ERROR, kModule, "[SimulatedBackend] cannot store a [%s]", record.typeName() ? record.typeName() : "null");
        return false;
    }
    int const closeAction = record.value<_SETTING_COMMON_>().closeAction;
    if (closeAction < 0 || closeAction > 2) {
        BFLOG(BFLOG_ERROR, kModule, "[SimulatedBackend] close action [%d] out of range, not stored", closeAction);
        return false;
    }
    {
        QMutexLocker lock(&m_mutex);
        ensureLoadedLocked();
        QString const previous = m_store.value(QStringLiteral("common"), QStringLiteral("closeAction"));
        m_store.setValue(QStringLiteral("common"), QStringLiteral("closeAction"), QString::number(closeAction));
        if (!m_store.save()) {
            // Memory keeps what the disk has, so a read never reports a value
            // that the next start would not see.
            if (previous.isEmpty())
                m_store.remove(QStringLiteral("common"), QStringLiteral("closeAction"));
            else
                m_store.setValue(QStringLiteral("common"), QStringLiteral("closeAction"), previous);
            return false;
        }
    }
    BFLOG(BFLOG_INFO, kModule, "[SimulatedBackend] close action [%d] stored", closeAction);
    emit sig_settingsChanged();
    return true;
}

QByteArray SimulatedBackend::exitPasswordDigestLocked()
{
    QString const fromEnv = qEnvironmentVariable("QUORIX_EXIT_PASSWORD");
    if (!fromEnv.isEmpty())
        return sha256(fromEnv);
    ensureLoadedLocked();
    QByteArray const hex = m_store.value(QStringLiteral("verify"), QStringLiteral("exitPasswordSha256")).toLatin1();
    QByteArray const digest = QByteArray::fromHex(hex);
    if (hex.size() != 64 || digest.size() != 32)
        return QByteArray();
    return digest;
}

int SimulatedBackend::verifyPolicy(int kind)
{
    QMutexLocker lock(&m_mutex);
    if (kind == kVerifyKindExit && !exitPasswordDigestLocked().isEmpty())
        return kPolicyPasswordRequired;
    return kPolicyNoPassword;
}

int SimulatedBackend::verifyPassword(int kind, QString const& password)
{
    QByteArray expected;
    {
        QMutexLocker lock(&m_mutex);
        expected = exitPasswordDigestLocked();
    }
    if (kind != kVerifyKindExit || expected.isEmpty()) {
        BFLOG(BFLOG_WARN, kModule, "[SimulatedBackend] no password configured for kind [%d]", kind);
        return 1;
    }
    bool const ok = equalConstantTime(sha256(password), expected);
    BFLOG(BFLOG_INFO, kModule, "[SimulatedBackend] exit password %s", ok ? "accepted" : "rejected");
    return ok ? 0 : 1;
}

QString SimulatedBackend::userId()
{
    QMutexLocker lock(&m_mutex);
    ensureLoadedLocked();
    QString id = m_store.value(QStringLiteral("state"), QStringLiteral("userId"));
    if (QUuid::fromString(id).isNull()) {
        id = QUuid::createUuid().toString(QUuid::WithoutBraces);
        m_store.setValue(QStringLiteral("state"), QStringLiteral("userId"), id);
        m_store.save();
    }
    return id;
}

QList<_VERINFO_> SimulatedBackend::libraryVersions(int kind)
{
    QMutexLocker lock(&m_mutex);
    QList<_VERINFO_> list;
    if (kind == kLibAll || kind == kLibVirus)
        list.append(libraryEntry(storedOrDefaultLocked(QStringLiteral("versions"), QStringLiteral("virusData"),
                                                       kVirusDataVersion), kLibVirus));
    if (kind == kLibAll || kind == kLibVulnerability)
        list.append(libraryEntry(storedOrDefaultLocked(QStringLiteral("versions"), QStringLiteral("vulData"),
                                                       kVulDataVersion), kLibVulnerability));
    if (list.isEmpty())
        BFLOG(BFLOG_WARN, kModule, "[SimulatedBackend] no library of kind [%d]", kind);
    return list;
}

int SimulatedBackend::unreadMessageCount()
{
    return 0;
}
