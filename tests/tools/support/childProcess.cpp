#include "childProcess.h"

#include <csignal>
#include <sys/prctl.h>

void ChildProcess::setupChildProcess()
{
    // Runs in the child between fork and exec.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}
