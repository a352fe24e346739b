#pragma once

#include "cqinputpassword.h"

// The exit-password window of the quit flow. The backend checks the password;
// the plugin stores none. A wrong one leaves the window open in its error
// state for another try.
class MainExitInputPassword : public CQInputPassword
{
    Q_OBJECT
public:
    explicit MainExitInputPassword(QWidget* parent = nullptr);
    ~MainExitInputPassword() override;

signals:
    void sig_password_is_ok(bool ok);

public slots:
    // Empties the field and shows the window centred over its parent.
    void slot_show();
    void slot_check_password(QString password);
};
