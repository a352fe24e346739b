#pragma once

#include "basegui_global.h"

#include <QLabel>

// A small rounded state tag ("监控中") whose colours follow its UI type.
class BASEGUI_EXPORT CQLabelState : public QLabel
{
    Q_OBJECT
public:
    enum eUIType {
        UITYPE_NORMAL = 0,    // green: running, monitoring
        UITYPE_WARNING = 1,   // orange
        UITYPE_ERROR = 2,     // red
        UITYPE_DISABLED = 3   // grey
    };

    explicit CQLabelState(QWidget* parent = nullptr);
    CQLabelState(QString const& text, int uiType, QWidget* parent = nullptr);
    ~CQLabelState() override;

    // An unknown type is logged and shown as UITYPE_DISABLED.
    void setUIType(int uiType);
    int uiType() const;

private:
    int m_uiType = UITYPE_NORMAL;
};
