#pragma once

#include "quorixbackend.h"
#include "quorixbackendregistry.h"

#include <QAtomicInt>
#include <QAtomicPointer>
#include <QThread>

#include <memory>

// A backend behind the real bridges that the test drives (close action, exit
// policy and password, weak-password acknowledgement) and watches (setting
// writes, weak-password requests, the thread that asked whether it is ready).
class TestBackend : public QuorixBackend
{
public:
    QAtomicInt closeAction{2};
    QAtomicInt exitPolicy{0};
    QAtomicInt acceptWeakPasswdCheck{1};
    QAtomicInt weakPasswdRequests{0};
    QAtomicInt writes{0};
    // Power orders the GUI passed on: last shutdown method, restart count.
    QAtomicInt shutdownMethod{-1};
    QAtomicInt reboots{0};
    QString const exitPassword = QStringLiteral("s3cret");

    QAtomicPointer<QThread> readyThread;

    bool isReady() override
    {
        readyThread.storeRelaxed(QThread::currentThread());
        return true;
    }
    int requestWeakPasswdCheck() override
    {
        weakPasswdRequests.fetchAndAddRelaxed(1);
        return acceptWeakPasswdCheck.loadRelaxed() ? 0 : -1;
    }
    __sSettingData readSetting(QString const& typeName) override
    {
        _SETTING_COMMON_ common;
        common.closeAction = closeAction.loadRelaxed();
        bool const known = typeName == QLatin1String("_SETTING_COMMON_") || typeName == QLatin1String("SETTING_COMMON");
        return known ? __sSettingData{0, typeName, QVariant::fromValue(common)} : __sSettingData{-1, {}, {}};
    }
    bool writeSetting(QVariant const& data) override
    {
        if (data.userType() != qMetaTypeId<_SETTING_COMMON_>())
            return false;
        closeAction.storeRelaxed(data.value<_SETTING_COMMON_>().closeAction);
        writes.fetchAndAddRelaxed(1);
        return true;
    }
    int verifyPolicy(int kind) override { return kind == 1 ? exitPolicy.loadRelaxed() : 0; }
    int verifyPassword(int kind, QString const& password) override { return kind == 1 && password == exitPassword ? 0 : -1; }

    QString clientVersion() override { return QStringLiteral("10.0.0.7550"); }
    QString virusDataVersion() override { return QStringLiteral("2024.05.01"); }
    unsigned int guardDays() override { return 42; }
    quint64 baseInfo() override { return 7; }
    int shutdown(int method) override
    {
        shutdownMethod.storeRelaxed(method);
        return 0;
    }
    int reboot() override
    {
        reboots.fetchAndAddRelaxed(1);
        return 0;
    }
    void trayMenuShown() override {}
    QString userId() override { return QStringLiteral("test-user"); }
    QList<_VERINFO_> libraryVersions(int) override { return {}; }
    int unreadMessageCount() override { return 0; }

    // A fresh one behind every bridge; restore() brings the simulated backend back.
    static std::shared_ptr<TestBackend> install()
    {
        auto backend = std::make_shared<TestBackend>();
        QuorixBackendRegistry::setBackend(backend);
        return backend;
    }
    static void restore() { QuorixBackendRegistry::setBackend(nullptr); }
};
