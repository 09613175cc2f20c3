#include "master/Foremen.h"

#include "data/recordset/Recordset.h"

namespace tarnwell {

std::vector<QString> readForemen(Connection& connection) {
    Recordset foremen;
    foremen.Open("SELECT LastName + '/' + FirstName AS EmployeeName FROM Employee WHERE Type='Foreman' ORDER "
                 "BY LastName",
                 connection);
    std::vector<QString> names;
    for (; !foremen.atEnd(); foremen.MoveNext())
        if (const Value name = foremen.field(0); !name.isNull())
            names.push_back(name.toText());
    return names;
}

} // namespace tarnwell
