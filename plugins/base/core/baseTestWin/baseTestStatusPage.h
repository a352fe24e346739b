#pragma once

#include "baseTestPage.h"

#include "bridgerecords.h"

class QLineEdit;
class QSpinBox;

// The data the backend pushes and the GUI only shows: protection days, the
// base information word, the client and virus-library versions, and the
// message centre's unread count.
class BaseTestStatusPage : public BaseTestPage
{
    Q_OBJECT
public:
    // Tray hint label and title bar have room for no more.
    static constexpr int kMaxGuardDays = 36500;
    static constexpr int kVersionChars = 64;
    static constexpr int kMaxUnread = 99999;

    explicit BaseTestStatusPage(QWidget* parent = nullptr);
    ~BaseTestStatusPage() override;

    // The base information word as typed (decimal, or hexadecimal with 0x);
    // false when it is no unsigned 64-bit number.
    bool baseInfo(__sBaseModuleBaseInfo& info) const;

private:
    void InitUIGuardDays();
    void InitUIBaseInfo();
    void InitUIVersions();
    void InitUIMessageCenter();
    QString checkBaseInfo() const;

    QSpinBox* m_pSpinGuardDays = nullptr;
    QLineEdit* m_pEditBaseInfo = nullptr;
    QLineEdit* m_pEditClientVersion = nullptr;
    QLineEdit* m_pEditVirusVersion = nullptr;
    QSpinBox* m_pSpinUnread = nullptr;
};
