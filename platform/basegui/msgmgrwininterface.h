#pragma once

#include "basegui_global.h"

#include <QList>
#include <QMetaType>
#include <QPointer>
#include <QString>
#include <QWidget>

// Base of the pop-up windows the message manager stacks. Each has an id; the
// message manager switches it between the stand-alone and the compact look.
class CQButton;

class BASEGUI_EXPORT MsgMgrWinInterface : public QWidget
{
    Q_OBJECT
public:
    enum eUIType { EUITYPE_ALONE = 0, EUITYPE_COMPACT = 1 };
    Q_ENUM(eUIType)

    MsgMgrWinInterface(QWidget* parent, QString const& id);
    ~MsgMgrWinInterface() override;

    QString id() const;
    // Records the look; subclasses restyle and call the base. Returns 0.
    virtual int changUIType(eUIType type);
    eUIType uiType() const;
    // Holds or resumes the window's count-down (the message manager pauses it
    // while the pointer rests on the window). The default acts on every
    // counting CQButton of the window; a window whose deadline must not move
    // overrides it to do nothing.
    virtual void setCountdownPaused(bool paused);

    // Registers sMsgMgrWinInfo with the meta-type system under "sMsgMgrWinInfo"
    // (idempotent); returns its type id.
    static int registerMetaType();

signals:
    // Emitted once, just before the window closes (or, for a window deleted
    // without being closed, from its destructor).
    void sig_preClose(QString id);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void sendPreClose();

    QString m_id;
    eUIType m_uiType = EUITYPE_ALONE;
    // The count-downs setCountdownPaused(true) held; only these resume, not
    // one its owner stopped on purpose.
    QList<QPointer<CQButton>> m_heldButtons;
    bool m_preCloseSent = false;
};

// What the message manager is given with each window.
struct sMsgMgrWinInfo
{
    QString winId;
    int priority = 10;
    QString ownerPluginId;
    int flag = 0;
    MsgMgrWinInterface* window = nullptr;
};
Q_DECLARE_METATYPE(sMsgMgrWinInfo)
