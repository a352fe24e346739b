#include "authmgritem.h"

AuthMgritem::AuthMgritem(int id, QWidget* parent)
    : QWidget(parent)
    , m_nId(id)
{
}

AuthMgritem::~AuthMgritem() = default;

int AuthMgritem::id() const
{
    return m_nId;
}

int AuthMgritem::status() const
{
    return m_nStatus;
}

void AuthMgritem::setStatus(int status)
{
    if (status == m_nStatus)
        return;
    m_nStatus = status;
    emit sig_updateStatus();
}
