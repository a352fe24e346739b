#pragma once

#include "bridge_global.h"
#include "quorixbackend.h"
#include "simulatedsettingsstore.h"

#include <QByteArray>
#include <QDate>
#include <QMutex>

// The backend of a machine without the security daemon: plausible versions, a
// protection-day count from the first run, settings in
// <config>/settings.ini, an exit password from the configuration, and power
// orders that are logged instead of carried out.
//
// <config> is $QUORIX_CONFIG_DIR, else $XDG_CONFIG_HOME/quorix, else
// ~/.config/quorix. The exit password comes from $QUORIX_EXIT_PASSWORD, else
// from the SHA-256 hex digest in [verify] exitPasswordSha256.
class BRIDGE_EXPORT SimulatedBackend : public QuorixBackend
{
    Q_OBJECT
public:
    // An empty folder means the default one above.
    explicit SimulatedBackend(QString const& configDir = QString(), QObject* parent = nullptr);
    ~SimulatedBackend() override;

    static QString defaultConfigDir();
    QString settingsFilePath() const;
    // The day protection started; fixed on the first run and stored.
    QDate firstRunDate();
    // What "today" is, for the day count; tests move it.
    void setToday(QDate const& today);

    bool isReady() override;
    QString clientVersion() override;
    QString virusDataVersion() override;
    unsigned int guardDays() override;
    quint64 baseInfo() override;
    int requestWeakPasswdCheck() override;
    int shutdown(int method) override;
    int reboot() override;
    void trayMenuShown() override;

    __sSettingData readSetting(QString const& typeName) override;
    bool writeSetting(QVariant const& data) override;

    int verifyPolicy(int kind) override;
    int verifyPassword(int kind, QString const& password) override;

    QString userId() override;
    QList<_VERINFO_> libraryVersions(int kind) override;

    int unreadMessageCount() override;

    // Close action used until the user stores one: ask every time.
    static constexpr int kDefaultCloseAction = 2;

private:
    // Loads the file on first use; callers hold m_mutex.
    void ensureLoadedLocked();
    QByteArray exitPasswordDigestLocked();
    QString storedOrDefaultLocked(QString const& section, QString const& key, QString const& fallback);
    int closeActionLocked();

    QMutex m_mutex;
    SimulatedSettingsStore m_store;
    bool m_loaded = false;
    QDate m_today;
};
