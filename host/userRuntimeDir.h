#pragma once

#include <QString>

// The per-user folder for the client's lock and hand-over socket: files there
// must be reachable by this user only, or another account could pose as the
// running client or keep it from starting.
//
// $XDG_RUNTIME_DIR when it is an absolute path to a folder of this user that
// nobody else can write to; else <fallbackParent>/quorix-<uid>, created 0700,
// refused when it is a link, not a folder, or another user's, and narrowed to
// 0700 when it is ours but open to others.
class UserRuntimeDir
{
public:
    // "" when no usable folder exists (logged).
    static QString path(QString const& fallbackParent = QStringLiteral("/tmp"));

    // Whether `dir` can be used as it is: absolute, a folder, owned by this
    // user, writable by nobody else.
    static bool isPrivate(QString const& dir);
    // Creates `dir` 0700 or checks the one that is there. false (logged) when
    // it cannot be made private to this user.
    static bool makePrivate(QString const& dir);

private:
    UserRuntimeDir() = delete;
};
