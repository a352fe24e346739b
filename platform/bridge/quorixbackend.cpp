#include "quorixbackend.h"

QuorixBackend::QuorixBackend(QObject* parent)
    : QObject(parent)
{
}

QuorixBackend::~QuorixBackend() = default;
