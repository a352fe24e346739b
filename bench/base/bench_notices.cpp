// What unified notices cost, from the bridge signal to a shown window:
//   - 200 notices created, registered and shown through the bridge's
//     sig_UniNotifyMsg, against building and showing 200 bare Qt widget trees
//     of the same sizes and texts (ratio of medians over several rounds);
//   - resident memory per open notice;
//   - 10,000 notices opened and closed in batches of 200, and the resident
//     memory after them against before.
// The message manager is stood in for by a receiver that shows each window
// it is given, so both sides show every window; stacking is not included.
// Runs headless; prints one line per figure.
//
//   bench_base_notices [rounds]      (default 9)

#include "basePlugin.h"
#include "benchEnvironment.h"
#include "basepluginmodeldatainterface.h"
#include "cqbaseplugin.h"
#include "cqmainwindow.h"
#include "cqpluginmanager.h"
#include "msgmgrwininterface.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

int const kBatch = 200;

// Shows what it is given, as the message manager would.
class ShowingReceiver : public CQBasePlugin
{
public:
    int shown = 0;
    QVariant execCmd(QString cmd, QVariant const& para) override
    {
        if (cmd == QLatin1String("EPLUGIN_ID_MSGMGR_CMD_REGISTER_WIN")) {
            MsgMgrWinInterface* w = para.value<sMsgMgrWinInfo>().window;
            w->move(100, 100);
            w->show();
            ++shown;
        }
        return QVariant();
    }
};

__sUniNoticeMsgInfo notice(int n)
{
    __sUniNoticeMsgInfo info;
    info.id = QStringLiteral("bench-%1").arg(n);
    info.text1 = QString::fromUtf8("发现病毒");
    info.text2 = QString::fromUtf8("病毒查杀");
    info.text3 = QString::fromUtf8("在下载目录中发现 3 个威胁，已全部隔离。点击查看详情了解处理结果。");
    info.text4 = QString::fromUtf8("查看详情");
    info.number1 = 15;
    return info;
}

// The same tree in plain Qt: title strip, heading, wrapped body, link and button.
QWidget* bareNotice(__sUniNoticeMsgInfo const& info)
{
    auto* w = new QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint);
    w->setAttribute(Qt::WA_DeleteOnClose);
    w->setFixedWidth(380);
    auto* layout = new QVBoxLayout(w);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* title = new QFrame(w);
    title->setFixedSize(380, 48);
    auto* titleRow = new QHBoxLayout(title);
    titleRow->addWidget(new QLabel(info.text2, title));
    titleRow->addWidget(new QPushButton(QStringLiteral("x"), title));
    layout->addWidget(title);
    auto* heading = new QLabel(info.text1, w);
    heading->setFixedSize(332, 24);
    auto* body = new QLabel(info.text3, w);
    body->setFixedWidth(332);
    body->setWordWrap(true);
    layout->addWidget(heading);
    layout->addWidget(body);
    auto* bottom = new QFrame(w);
    bottom->setFixedSize(380, 60);
    auto* row = new QHBoxLayout(bottom);
    row->addWidget(new QPushButton(info.text4, bottom));
    row->addStretch();
    auto* button = new QPushButton(QString::fromUtf8("知道了 (15s)"), bottom);
    button->setFixedSize(72, 24);
    row->addWidget(button);
    layout->addWidget(bottom);
    w->move(100, 100);
    w->show();
    return w;
}

void closeAll()
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->testAttribute(Qt::WA_DeleteOnClose) && w->isVisible())
            w->close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

double residentMiB(bool trimFirst)
{
    if (trimFirst)
        malloc_trim(0);
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    QList<QByteArray> const fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields.at(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0) : 0;
}

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

int g_serial = 0;

void openNoticeBatch(ShowingReceiver* receiver)
{
    int const before = receiver->shown;
    for (int i = 0; i < kBatch; ++i)
        emit BasePluginModelDataInterface::singleInstance()->sig_UniNotifyMsg(notice(++g_serial));
    while (receiver->shown < before + kBatch)
        QCoreApplication::processEvents();
}

} // namespace

int main(int argc, char** argv)
{
    setBenchEnvironment("3");
    QApplication app(argc, argv);
    int const rounds = argc > 1 ? qMax(3, QByteArray(argv[1]).toInt()) : 9;

    CQMainWindow main;
    main.setBodyMountName(QStringLiteral("NavigateWidget_MainWindow"));
    CQPluginManager* manager = CQPluginManager::singleInstance();
    manager->setHost(&main);
    auto* receiver = new ShowingReceiver;
    manager->addPlugin(new BasePlugin(), QStringLiteral("EPLUGIN_ID_BASE"));
    manager->addPlugin(new CQBasePlugin(), QStringLiteral("EPLUGIN_ID_BRIDGE_BASE"));
    manager->addPlugin(receiver, QStringLiteral("EPLUGIN_ID_MSGMGR"));

    std::vector<double> noticeMs;
    std::vector<double> bareMs;
    QElapsedTimer timer;
    for (int round = 0; round < rounds; ++round) {
        timer.start();
        openNoticeBatch(receiver);
        noticeMs.push_back(timer.nsecsElapsed() / 1e6);
        closeAll();
        timer.start();
        for (int i = 0; i < kBatch; ++i)
            bareNotice(notice(i));
        bareMs.push_back(timer.nsecsElapsed() / 1e6);
        closeAll();
    }
    double const n = median(noticeMs);
    double const b = median(bareMs);
    std::printf("200 notices via sig_UniNotifyMsg (create+register+show)  median %8.1f ms (%d rounds)\n", n, rounds);
    std::printf("200 bare Qt widget trees (create+show)                   median %8.1f ms\n", b);
    std::printf("ratio notices / bare                                     %8.2f\n", b > 0 ? n / b : 0.0);

    double const beforeOpen = residentMiB(true);
    openNoticeBatch(receiver);
    double const open = residentMiB(false);
    std::printf("resident memory per open notice                          %8.1f KiB\n", (open - beforeOpen) * 1024.0 / kBatch);
    closeAll();

    double const start = residentMiB(true);
    int const batches = 10000 / kBatch;
    for (int i = 0; i < batches; ++i) {
        openNoticeBatch(receiver);
        closeAll();
    }
    double const end = residentMiB(true);
    std::printf("10000 notices opened and closed: RSS before %.1f MiB, after %.1f MiB, growth %+.2f MiB\n", start, end,
                end - start);

    manager->unloadAll();
    manager->setHost(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
