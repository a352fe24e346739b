#include "controlrequestcheck.h"

#include <QRegularExpression>
#include <QUrl>

QString ControlRequestCheck::length(char const* field, QString const& text, int max)
{
    if (text.size() <= max)
        return QString();
    return QStringLiteral("%1 is longer than %2 characters").arg(QLatin1String(field)).arg(max);
}

QString ControlRequestCheck::range(char const* field, qint64 value, qint64 min, qint64 max)
{
    if (value >= min && value <= max)
        return QString();
    return QStringLiteral("%1 %2 is outside %3..%4").arg(QLatin1String(field)).arg(value).arg(min).arg(max);
}

QString ControlRequestCheck::first(std::initializer_list<QString> reasons)
{
    for (QString const& reason : reasons) {
        if (!reason.isEmpty())
            return reason;
    }
    return QString();
}

// A notice comes from whoever is on the bus; a click on it must never hand
// file:, a custom scheme or a script to the desktop's URL handler.
QString ControlRequestCheck::webAddress(QString const& url)
{
    if (QString const tooLong = length("url", url, kMaxUrlLength); !tooLong.isEmpty())
        return tooLong;
    QUrl const parsed(url, QUrl::StrictMode);
    QString const scheme = parsed.scheme().toLower();
    if (!parsed.isValid() || parsed.host().isEmpty() || (scheme != QLatin1String("http") && scheme != QLatin1String("https")))
        return QStringLiteral("url must be an http or https address");
    return QString();
}

QString ControlRequestCheck::objectName(QString const& name)
{
    static QRegularExpression const shape(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    if (QString const tooLong = length("object name", name, kMaxObjectNameLength); !tooLong.isEmpty())
        return tooLong;
    if (!shape.match(name).hasMatch())
        return QStringLiteral("object name must be letters, digits and underscores, not starting with a digit");
    return QString();
}

QString ControlRequestCheck::notice(__sUniNoticeMsgInfo const& info)
{
    QString const fields = first({
        length("id", info.id, kMaxIdLength),
        range("level", info.value1, 0, kMaxLevel),
        length("heading", info.text1, kMaxLineLength),
        length("title", info.text2, kMaxLineLength),
        range("countdown", info.number1, kMinSeconds, kMaxSeconds),
        range("button", info.number2, 0, kMaxButtonCode),
        length("body", info.text3, kMaxTextLength),
        length("link text", info.text4, kMaxLineLength),
    });
    if (!fields.isEmpty())
        return fields;
    switch (info.number4) {
    case kJumpUrl:
        return webAddress(info.text5);
    case kJumpPage:
        return objectName(info.text5);
    case kJumpNone:
        // Without a jump the window never reads the target.
        return length("target", info.text5, kMaxUrlLength);
    default:
        return QStringLiteral("jump kind %1 is not -1, 0 or 1").arg(info.number4);
    }
}

QString ControlRequestCheck::devicePopup(__sDeviceMgrPopup const& info)
{
    return first({
        length("window title", info.winTitle, kMaxLineLength),
        length("title", info.title, kMaxLineLength),
        length("content", info.content, kMaxTextLength),
        length("button text", info.btnText, kMaxLineLength),
        range("countdown", info.time, kMinSeconds, kMaxSeconds),
        length("details", info.text5, kMaxTextLength),
    });
}

QString ControlRequestCheck::powerOrder(int method, int countdown)
{
    if (method != EDEVMGR_SHUTDOWN && method != EDEVMGR_SHUTDOWN_FORCE && method != EDEVMGR_REBOOT)
        return QStringLiteral("power method %1 is not 0, 1 or 2").arg(method);
    // The order is carried out when the count-down ends; without one the
    // window would wait for ever.
    return range("countdown", countdown, 1, kMaxSeconds);
}

QString ControlRequestCheck::prompt(_sNoticeWinInfo_ const& info)
{
    return first({
        range("type", info.noticeType, 0, kMaxPromptType),
        length("text 1", info.text1, kMaxTextLength),
        length("text 2", info.text2, kMaxTextLength),
        length("text 3", info.text3, kMaxTextLength),
        length("text 4", info.text4, kMaxTextLength),
    });
}

QString ControlRequestCheck::guardDays(unsigned int days)
{
    return range("days", days, 0, kMaxGuardDays);
}
