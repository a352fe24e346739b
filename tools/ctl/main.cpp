// quorix-ctl: raises a backend event in the running client, for demos, tests
// and support. Exit status 0 accepted, 1 not delivered, 2 wrong command line.

#include "ctlClient.h"
#include "ctlCommandLine.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

int const kExitAccepted = 0;
int const kExitNotDelivered = 1;
int const kExitUsage = 2;

void print(FILE* stream, QString const& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quorix-ctl"));

    CtlCommandLine::Request request;
    QString error;
    if (!CtlCommandLine::parse(QCoreApplication::arguments().mid(1), request, error)) {
        print(stderr, QStringLiteral("quorix-ctl: %1\n\n%2").arg(error, CtlCommandLine::usage()));
        return kExitUsage;
    }
    if (request.command == CtlCommandLine::Command::Help) {
        print(stdout, CtlCommandLine::usage());
        return kExitAccepted;
    }
    CtlClient client;
    if (!client.send(request)) {
        print(stderr, QStringLiteral("quorix-ctl: %1\n").arg(client.errorText()));
        return kExitNotDelivered;
    }
    return kExitAccepted;
}
