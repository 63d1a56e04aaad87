#include "sales/host_fault.h"

#include "common/program.h"

using namespace Qt::StringLiterals;

void tellHostFault(Program &program, const HostError &error)
{
    if (error.connectionLost())
        tellConnectionLost(program);
    else
        program.report(error);
}

void tellConnectionLost(Program &program)
{
    program.warn(u"MUV SQL Server Bağlantısı Kurulamıyor. Server Bağlantısını Tekrar "
                 "Yapmayı Deneyin..."_s);
}
