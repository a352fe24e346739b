#pragma once

#include "basegui_global.h"

#include <QWidget>

// One authentication service a plugin reports to the title bar's status icon:
// a widget of its own (shown in the icon's pop-up), an id and a status
// (non-zero good, 0 failed). It lives in the kit, not in the base plugin: the
// bus checks items by their meta-object, so plugins derive from this class.
class BASEGUI_EXPORT AuthMgritem : public QWidget
{
    Q_OBJECT
public:
    explicit AuthMgritem(int id, QWidget* parent = nullptr);
    ~AuthMgritem() override;

    virtual int id() const;
    virtual int status() const;
    // Emits sig_updateStatus when the value changes.
    void setStatus(int status);

signals:
    void sig_updateStatus();

private:
    int m_nId = 0;
    int m_nStatus = 0;
};
