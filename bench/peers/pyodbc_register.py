"""pyodbc_register.py <data source> <devices as lines> [at-once]

Registers devices with the statements of the command line, one by one or with one commit at the end.
"""

import sys

import pyodbc


def walk(connection, query, is_found, *counted):
    """The largest numbers of the columns, which are found by their position."""
    largest = [0] * len(counted)
    for row in connection.execute(query):
        if is_found(row):
            raise ValueError("the device is there already")
        for i, column in enumerate(counted):
            number = row[column]
            if number is not None and number > largest[i]:
                largest[i] = number
    return largest


def register(connection, manufacturer, manufacturer_name, device_type, name):
    connection.execute("SELECT *   FROM __version  ORDER BY Major, Minor ").fetchall()
    connection.execute("SELECT *   FROM DeviceCategories  ORDER BY DevicecategoryId ").fetchall()
    protocol, maker = walk(connection, "select *   from MfrProtocols ",
                           lambda row: int(row[3]) == manufacturer and row[2] == 0, 0, 1)
    protocol, maker = protocol + 1, maker + 1
    connection.execute("INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) "
                       f"VALUES ({maker}, '{manufacturer_name}', '') ")
    connection.execute("INSERT INTO MfrProtocols        (MfrProtocolId, TavMfrNameId, ProtocolId, MfrId) "
                       f"VALUES ({protocol}, {maker}, 0, '{manufacturer}') ")
    (number,) = walk(connection, "select *   from DeviceTypes ",
                     lambda row: int(row[2]) == device_type and row[1] == protocol, 0)
    number += 1
    connection.execute("INSERT INTO DeviceTypes        (TavDevTypeId, MfrProtocolId, DeviceType, Name, Description) "
                       f"VALUES ({number}, {protocol}, '{device_type}', '{name}', '') ")
    (revision,) = walk(connection, "select *   from DeviceRevisions ",
                       lambda row: row[1] == number and int(row[2]) == 1, 0)
    connection.execute("INSERT INTO DeviceRevisions        (TavDevRevId, TavDevTypeId, DeviceRevision, "
                       f"DeviceCategoryId, Name, Description) VALUES ({revision + 1}, {number}, '1', 0, '', '') ")


def main():
    source, path, *at_once = sys.argv[1:]
    connection = pyodbc.connect(f"UID=sa;PWD=;DSN={source}", autocommit=not at_once)
    for query in ("SELECT *   FROM __version  ORDER BY Major, Minor ", "SELECT *   FROM Manufacturers ",
                  "SELECT *   FROM DeviceTypes ", "SELECT *   FROM DeviceProtocols  ORDER BY ProtocolId ",
                  "SELECT MajorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MajorDeviceCategories  "
                  "ORDER BY MajorDevicecategoryId ",
                  "SELECT MinorDeviceCategoryId AS DevCat, Name AS DevCatName   FROM MinorDeviceCategories  "
                  "ORDER BY MinorDevicecategoryId "):
        connection.execute(query).fetchall()
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            manufacturer, manufacturer_name, device_type, name = line.rstrip("\n").split("\t")
            register(connection, int(manufacturer), manufacturer_name, int(device_type), name)
    if at_once:
        connection.commit()


if __name__ == "__main__":
    main()
