"""pyodbc_read.py <data source> <query> <answer>

Reads the rows of "MfrProtocols" and uses every column by its name. The answer has the seconds without the connect, and the
rows of a second reading.
"""

import sys
import time

import pyodbc


def main():
    source, query, answer = sys.argv[1:]
    pyodbc.lowercase = True  # databases differ in the letter case of their names
    connection = pyodbc.connect(f"UID=sa;PWD=;DSN={source}", autocommit=True)
    touched = 0
    begin = time.perf_counter()
    for row in connection.execute(query):
        touched += row.mfrprotocolid + row.tavmfrnameid + row.protocolid + len(row.mfrid)
    passed = time.perf_counter() - begin
    with open(answer, "w", encoding="utf-8") as file:
        file.write(f"{passed}\n")
        for row in connection.execute(query):
            file.write(f"{row.mfrprotocolid}|{row.tavmfrnameid}|{row.protocolid}|{row.mfrid}\n")
    return 0 if touched > 0 else 1


if __name__ == "__main__":
    sys.exit(main())
