#pragma once

#include "bridgerecords.h"

#include <QString>
#include <QStringList>

// quorix-ctl's command line, turned into the event to send. Pure: no bus and
// no output, so every rule can be tested on its own; main prints and exits.
//
// A wrong command line (unknown command or option, a missing value, a word
// where a number belongs, a value the client would refuse) is an error here,
// so nothing the client would turn down is ever sent.
class CtlCommandLine
{
public:
    enum class Command { Help, Notice, DevicePopup, PowerOrder, Prompt, GuardDays, Show, Hide, Jump, Quit };

    static constexpr int kDefaultPowerCountdown = 60;
    static constexpr int kMaxPromptTexts = 4;

    // An administrator's order: eDevMgr method and seconds until it is carried out.
    struct PowerOrder
    {
        int method = EDEVMGR_SHUTDOWN;
        int countdown = kDefaultPowerCountdown;
    };

    // The event to send; only the members that belong to `command` count.
    // Options left out keep the records' own defaults.
    struct Request
    {
        Command command = Command::Help;
        __sUniNoticeMsgInfo notice;
        __sDeviceMgrPopup device;
        PowerOrder power;
        _sNoticeWinInfo_ prompt;
        unsigned int days = 0;
        QString objectName;
    };

    // `arguments` without the program name. False, with a one-line `error`,
    // for a wrong command line; --help anywhere before "--" gives Help.
    static bool parse(QStringList const& arguments, Request& request, QString& error);
    // Every command with its options, for --help and usage errors.
    static QString usage();

private:
    CtlCommandLine() = delete;
};
