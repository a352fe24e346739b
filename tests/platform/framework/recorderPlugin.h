#pragma once

#include "cqbaseplugin.h"

#include <QStringList>
#include <QThread>

#if defined(TST_FRAMEWORK_SUPPORT_LIBRARY)
#define TST_SUPPORT_EXPORT __attribute__((visibility("default")))
#else
#define TST_SUPPORT_EXPORT
#endif

// A plugin that writes every call into one journal ("<id> <what>") shared by the
// test program and every test module, and acts on the bus when told to:
//   TST_CMD_SEND       [target, cmd, payload]  emits sig1
//   TST_CMD_BROADCAST  [cmd, payload]          emits sig
//   TST_CMD_DELETE     id                      deletes that plugin outright
//   TST_CMD_UNLOAD     id                      asks the manager to unload it
// At init it sends TST_SELF_PING to itself.
class TST_SUPPORT_EXPORT RecorderPlugin : public CQBasePlugin
{
    Q_OBJECT
public:
    ~RecorderPlugin() override;

    static QStringList& journal();

    int init(QVariant const& host) override;
    int unInit(QVariant const& para) override;
    QVariant execCmd(QString cmd, QVariant const& para) override;

    QThread* lastThread = nullptr;   // where execCmd ran last

private:
    void note(QString const& what) const;
};
