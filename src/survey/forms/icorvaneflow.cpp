#include "survey/forms/icorvaneflow.h"

#include <QDebug>

namespace {
ICorvaneFlow *s_flow = nullptr;
}

void ICorvaneFlow::setCurrent(ICorvaneFlow *flow)
{
    s_flow = flow;
}

ICorvaneFlow *ICorvaneFlow::current(const char *step)
{
    if (!s_flow)
        qWarning() << "No Corvane survey flow to take" << step << "- skipped";
    return s_flow;
}
