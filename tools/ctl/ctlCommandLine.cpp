#include "ctlCommandLine.h"

#include "controlrequestcheck.h"
#include "quorixControlProtocol.h"

#include <QSet>
#include <QVector>

#include <functional>
#include <limits>

namespace {

using Request = CtlCommandLine::Request;
using Command = CtlCommandLine::Command;
// Stores an option's value; returns why it cannot, "" when it could.
using Setter = std::function<QString(Request&, QString const&)>;
// Takes the positional arguments and checks the whole request.
using Finish = QString (*)(Request&, QStringList const&);

struct Option
{
    QString name;
    Setter set;
};

struct Subcommand
{
    QString name;
    Command command;
    QVector<Option> options;
    QStringList required;
    int minPositional;
    int maxPositional;
    Finish finish;
};

char const* const kUsage =
    "Usage: quorix-ctl COMMAND [OPTIONS]\n"
    "Raises a backend event in the running Quorix client over the session bus.\n"
    "\n"
    "Commands:\n"
    "  notice --title TEXT [--body TEXT] [--heading TEXT] [--id ID] [--level N]\n"
    "         [--countdown SECONDS] [--button CODE] [--link-text TEXT]\n"
    "         [--url URL | --page OBJECTNAME]\n"
    "      unified notice; level 2 is urgent; button 1 stop, 2 done, 3 got it,\n"
    "      4 view details, 5 run, 6 cancel; countdown 0 keeps it open\n"
    "  device --win-title TEXT [--title TEXT] [--content TEXT] [--button-text TEXT]\n"
    "         [--countdown SECONDS] [--details TEXT]\n"
    "      device-control pop-up\n"
    "  power shutdown|restart [--countdown SECONDS]\n"
    "      administrator's power order (count-down %1 s unless given)\n"
    "  prompt [--type N] TEXT [TEXT ...]\n"
    "      backend prompt of type 0-4 with up to four texts, title first\n"
    "  days N          protection days shown in the tray menu\n"
    "  show            show the main window\n"
    "  hide            hide the main window\n"
    "  jump OBJECTNAME go to the client page with that object name\n"
    "  quit            end the client without asking\n"
    "\n"
    "Options take their value as the next argument or after '='; '--' ends the\n"
    "options. COMMAND --help prints this text.\n"
    "\n"
    "Exit status: 0 the client accepted the event, 1 no client running (or it\n"
    "refused the event), 2 wrong command line.\n";

QString notANumber(QString const& option, QString const& value)
{
    return QStringLiteral("%1 needs a number, not [%2]").arg(option, value);
}

template <typename Record>
Setter text(Record Request::*record, QString Record::*field)
{
    return [record, field](Request& request, QString const& value) {
        (request.*record).*field = value;
        return QString();
    };
}

// Whole decimal numbers only; the range the client accepts is checked later,
// for the record as a whole.
template <typename Record, typename Number>
Setter number(QString const& option, Record Request::*record, Number Record::*field)
{
    return [option, record, field](Request& request, QString const& value) {
        bool ok = false;
        qlonglong const parsed = value.toLongLong(&ok, 10);
        if (!ok || parsed < std::numeric_limits<Number>::min() || parsed > std::numeric_limits<Number>::max())
            return notANumber(option, value);
        (request.*record).*field = static_cast<Number>(parsed);
        return QString();
    };
}

// --url and --page share the target field; the second one given would
// silently override the first.
Setter jumpTarget(int kind)
{
    return [kind](Request& request, QString const& value) {
        if (request.notice.number4 != QuorixControl::kJumpNone && request.notice.number4 != kind)
            return QStringLiteral("--url and --page exclude each other");
        request.notice.text5 = value;
        request.notice.number4 = kind;
        return QString();
    };
}

QString finishNotice(Request& request, QStringList const&)
{
    return ControlRequestCheck::notice(request.notice);
}

QString finishDevice(Request& request, QStringList const&)
{
    return ControlRequestCheck::devicePopup(request.device);
}

QString finishPower(Request& request, QStringList const& positional)
{
    QString const& order = positional.first();
    if (order == QLatin1String("shutdown"))
        request.power.method = EDEVMGR_SHUTDOWN;
    else if (order == QLatin1String("restart"))
        request.power.method = EDEVMGR_REBOOT;
    else
        return QStringLiteral("power needs shutdown or restart, not [%1]").arg(order);
    return ControlRequestCheck::powerOrder(request.power.method, request.power.countdown);
}

QString finishPrompt(Request& request, QStringList const& positional)
{
    QString* const texts[] = {&request.prompt.text1, &request.prompt.text2, &request.prompt.text3,
                              &request.prompt.text4};
    for (int i = 0; i < positional.size(); ++i)
        *texts[i] = positional.at(i);
    return ControlRequestCheck::prompt(request.prompt);
}

QString finishDays(Request& request, QStringList const& positional)
{
    bool ok = false;
    request.days = positional.first().toUInt(&ok, 10);
    if (!ok)
        return QStringLiteral("days needs a number, not [%1]").arg(positional.first());
    return ControlRequestCheck::guardDays(request.days);
}

QString finishJump(Request& request, QStringList const& positional)
{
    request.objectName = positional.first();
    return ControlRequestCheck::objectName(request.objectName);
}

QString finishNothing(Request&, QStringList const&)
{
    return QString();
}

QVector<Subcommand> const& subcommands()
{
    using Uni = __sUniNoticeMsgInfo;
    using Dev = __sDeviceMgrPopup;
    using Pro = _sNoticeWinInfo_;
    using Power = CtlCommandLine::PowerOrder;
    static QVector<Subcommand> const table = {
        {QStringLiteral("notice"), Command::Notice,
         {{QStringLiteral("--title"), text(&Request::notice, &Uni::text2)},
          {QStringLiteral("--body"), text(&Request::notice, &Uni::text3)},
          {QStringLiteral("--heading"), text(&Request::notice, &Uni::text1)},
          {QStringLiteral("--id"), text(&Request::notice, &Uni::id)},
          {QStringLiteral("--level"), number(QStringLiteral("--level"), &Request::notice, &Uni::value1)},
          {QStringLiteral("--countdown"), number(QStringLiteral("--countdown"), &Request::notice, &Uni::number1)},
          {QStringLiteral("--button"), number(QStringLiteral("--button"), &Request::notice, &Uni::number2)},
          {QStringLiteral("--link-text"), text(&Request::notice, &Uni::text4)},
          {QStringLiteral("--url"), jumpTarget(QuorixControl::kJumpUrl)},
          {QStringLiteral("--page"), jumpTarget(QuorixControl::kJumpPage)}},
         {QStringLiteral("--title")}, 0, 0, finishNotice},
        {QStringLiteral("device"), Command::DevicePopup,
         {{QStringLiteral("--win-title"), text(&Request::device, &Dev::winTitle)},
          {QStringLiteral("--title"), text(&Request::device, &Dev::title)},
          {QStringLiteral("--content"), text(&Request::device, &Dev::content)},
          {QStringLiteral("--button-text"), text(&Request::device, &Dev::btnText)},
          {QStringLiteral("--countdown"), number(QStringLiteral("--countdown"), &Request::device, &Dev::time)},
          {QStringLiteral("--details"), text(&Request::device, &Dev::text5)}},
         {QStringLiteral("--win-title")}, 0, 0, finishDevice},
        {QStringLiteral("power"), Command::PowerOrder,
         {{QStringLiteral("--countdown"), number(QStringLiteral("--countdown"), &Request::power, &Power::countdown)}},
         {}, 1, 1, finishPower},
        {QStringLiteral("prompt"), Command::Prompt,
         {{QStringLiteral("--type"), number(QStringLiteral("--type"), &Request::prompt, &Pro::noticeType)}}, {}, 1,
         CtlCommandLine::kMaxPromptTexts, finishPrompt},
        {QStringLiteral("days"), Command::GuardDays, {}, {}, 1, 1, finishDays},
        {QStringLiteral("show"), Command::Show, {}, {}, 0, 0, finishNothing},
        {QStringLiteral("hide"), Command::Hide, {}, {}, 0, 0, finishNothing},
        {QStringLiteral("jump"), Command::Jump, {}, {}, 1, 1, finishJump},
        {QStringLiteral("quit"), Command::Quit, {}, {}, 0, 0, finishNothing},
    };
    return table;
}

Subcommand const* findSubcommand(QString const& name)
{
    for (Subcommand const& sub : subcommands()) {
        if (sub.name == name)
            return &sub;
    }
    return nullptr;
}

Option const* findOption(Subcommand const& sub, QString const& name)
{
    for (Option const& option : sub.options) {
        if (option.name == name)
            return &option;
    }
    return nullptr;
}

bool isHelp(QString const& argument)
{
    return argument == QLatin1String("--help") || argument == QLatin1String("-h") || argument == QLatin1String("help");
}

QString positionalCountError(Subcommand const& sub, int count)
{
    if (count < sub.minPositional)
        return QStringLiteral("%1 needs more arguments").arg(sub.name);
    if (count > sub.maxPositional)
        return sub.maxPositional == 0 ? QStringLiteral("%1 takes no argument").arg(sub.name)
                                      : QStringLiteral("%1 takes at most %2 arguments").arg(sub.name).arg(sub.maxPositional);
    return QString();
}

// One option at arguments[i], its value inline after '=' or the next
// argument (then i moves past it). Returns why it cannot be taken, "" if it was.
QString takeOption(Subcommand const& sub, QStringList const& arguments, int& i, Request& request, QSet<QString>& given)
{
    QString const& argument = arguments.at(i);
    int const equals = argument.indexOf(QLatin1Char('='));
    QString const name = equals < 0 ? argument : argument.left(equals);
    Option const* option = findOption(sub, name);
    if (!option)
        return QStringLiteral("%1 has no option %2").arg(sub.name, name);
    if (equals < 0 && i + 1 >= arguments.size())
        return QStringLiteral("%1 needs a value").arg(name);
    QString const value = equals < 0 ? arguments.at(++i) : argument.mid(equals + 1);
    given.insert(name);
    return option->set(request, value);
}

QString missingRequired(Subcommand const& sub, QSet<QString> const& given)
{
    for (QString const& name : sub.required) {
        if (!given.contains(name))
            return QStringLiteral("%1 needs %2").arg(sub.name, name);
    }
    return QString();
}

} // namespace

bool CtlCommandLine::parse(QStringList const& arguments, Request& request, QString& error)
{
    request = Request();
    error.clear();
    if (arguments.isEmpty()) {
        error = QStringLiteral("no command given");
        return false;
    }
    if (isHelp(arguments.first()))
        return true;
    Subcommand const* sub = findSubcommand(arguments.first());
    if (!sub) {
        error = QStringLiteral("unknown command [%1]").arg(arguments.first());
        return false;
    }
    request.command = sub->command;
    QStringList positional;
    QSet<QString> given;
    bool optionsEnded = false;
    for (int i = 1; i < arguments.size() && error.isEmpty(); ++i) {
        QString const& argument = arguments.at(i);
        if (!optionsEnded && (argument == QLatin1String("--help") || argument == QLatin1String("-h"))) {
            request = Request();
            return true;
        }
        if (!optionsEnded && argument == QLatin1String("--"))
            optionsEnded = true;
        else if (optionsEnded || !argument.startsWith(QLatin1String("--")))
            positional.append(argument);
        else
            error = takeOption(*sub, arguments, i, request, given);
    }
    if (error.isEmpty())
        error = missingRequired(*sub, given);
    if (error.isEmpty())
        error = positionalCountError(*sub, positional.size());
    if (error.isEmpty())
        error = sub->finish(request, positional);
    return error.isEmpty();
}

QString CtlCommandLine::usage()
{
    return QString::fromLatin1(kUsage).arg(kDefaultPowerCountdown);
}
