#pragma once

#include "cqframe.h"

class CQLabel;

// A small name-over-value block of the version status card.
class VersionWin : public CQFrame
{
    Q_OBJECT
public:
    explicit VersionWin(QWidget* parent = nullptr);
    ~VersionWin() override;

    void setName(QString const& name);
    // An empty version shows "--".
    void setVersion(QString version);
    QString name() const;
    QString version() const;

private:
    QWidget* m_pWinLine = nullptr;
    CQLabel* m_pLabelName = nullptr;
    CQLabel* m_pLabelVersion = nullptr;
    QString m_name;
    QString m_version;
};
