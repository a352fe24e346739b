#pragma once

#include <QString>

// A lock file held for as long as the client lives: an flock(2) on the open
// file. The kernel drops it with the process, however that ends, so a lock
// file nobody holds is free whatever it says inside (an old pid, another host
// name). The file names its owner for whoever looks, but is never synced to
// disk: nothing in it matters after a crash, and a sync on a busy disk costs
// the start-up milliseconds.
//
// Unlocking removes the file before dropping the lock; a start that opened it
// just before notices that the name now leads elsewhere and opens again.
class InstanceLock
{
public:
    enum eResult { LOCK_TAKEN = 0, LOCK_BUSY, LOCK_ERROR };

    explicit InstanceLock(QString path);
    ~InstanceLock();
    InstanceLock(InstanceLock const&) = delete;
    InstanceLock& operator=(InstanceLock const&) = delete;

    // Takes the lock, waiting up to `timeoutMs` for a holder to let go.
    // LOCK_ERROR when the file cannot be opened (errorString()).
    eResult tryLock(int timeoutMs);
    bool isLocked() const;
    // Removes the file and drops the lock.
    void unlock();

    QString path() const;
    QString errorString() const;

private:
    eResult attempt();
    bool stillNamed(int fd) const;
    void writeOwner();

    QString m_path;
    QString m_error;
    int m_fd = -1;
};
