#pragma once

#include "cqbaseplugin.h"
#include "testJournal.h"

#include <QThread>

// A plugin that writes every call into the TestJournal ("<id> <what>") and
// can be told, through its own commands, to act on the bus:
//   TST_CMD_SEND       [target, cmd, payload]  emits sig1
//   TST_CMD_BROADCAST  [cmd, payload]          emits sig
//   TST_CMD_DELETE     id                      deletes that plugin outright
//   TST_CMD_UNLOAD     id                      asks the manager to unload it
// At init it sends TST_SELF_PING to itself.
class TST_SUPPORT_EXPORT RecorderPlugin : public CQBasePlugin
{
    Q_OBJECT
public:
    explicit RecorderPlugin(QObject* parent = nullptr);
    ~RecorderPlugin() override;

    int init(QVariant const& host) override;
    int unInit(QVariant const& para) override;
    QVariant execCmd(QString cmd, QVariant const& para) override;

    // Threads execCmd ran on, in order.
    QList<QThread*> threads() const { return m_threads; }

private:
    QString name() const;

    QList<QThread*> m_threads;
};
