#include "recordText.h"

#include <QStringList>

namespace {

QString join(QStringList const& parts)
{
    return parts.join(QLatin1Char('|'));
}

} // namespace

QString RecordText::of(__sUniNoticeMsgInfo const& info)
{
    return join({QStringLiteral("notice"), info.id, QString::number(info.value1), info.text1, info.text2,
                 QString::number(info.number1), QString::number(info.number2), info.text3,
                 QString::number(info.number3), info.text4, info.text5, QString::number(info.number4)});
}

QString RecordText::of(__sDeviceMgrPopup const& info)
{
    return join({QStringLiteral("device"), info.winTitle, info.title, info.content, info.btnText,
                 QString::number(info.time), info.text5});
}

QString RecordText::of(_sNoticeWinInfo_ const& info)
{
    return join({QStringLiteral("prompt"), QString::number(info.noticeType), info.text1, info.text2, info.text3,
                 info.text4});
}

QString RecordText::power(int method, int countdown)
{
    return join({QStringLiteral("power"), QString::number(method), QString::number(countdown)});
}
