"""configparser_upsert.py <file> <upserts as lines>"""

import configparser
import sys


def main():
    ini = configparser.ConfigParser(
        interpolation=None, strict=False, allow_no_value=True, delimiters=("=",), comment_prefixes=(";",)
    )
    ini.optionxform = str
    with open(sys.argv[1], encoding="latin-1") as file:
        ini.read_file(file)
    with open(sys.argv[2], encoding="latin-1") as lines:
        for line in lines:
            section, key, value = line.rstrip("\n").split("\t")
            if not ini.has_section(section):
                ini.add_section(section)
            ini.set(section, key, value)
    with open(sys.argv[1], "w", encoding="latin-1", newline="\r\n") as file:
        ini.write(file, space_around_delimiters=False)


main()
