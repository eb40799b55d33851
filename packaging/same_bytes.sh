# shellcheck shell=bash
# Sourced by what makes packages: nothing but what is in the files is to make a difference between two packages. Times are
# those of the last commit, or SOURCE_DATE_EPOCH. The sourcing script has its folder for scratch files in `work`.

export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$(dirname "${BASH_SOURCE[0]}")" log -1 --format=%ct)}
export LC_ALL=C TZ=UTC

# set_times <folder>: rights and times of everything below it.
set_times() {
    chmod -R u=rwX,go=rX "$1"
    find "$1" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +
}

# zip_folder <folder> <zip>: what is in the folder, sorted, without what a zip can note of owners and of other times.
zip_folder() {
    (cd "$1" && find . -type f -printf '%P\n' | sort | zip -q -9 -X -@ "$work/new.zip")
    mv "$work/new.zip" "$2"
}

# bind_book <book of a build> <book>: the help book again, without the owners and the times of access that its zip notes.
bind_book() {
    rm -rf "$work/book"
    unzip -q "$1" -d "$work/book"
    set_times "$work/book"
    zip_folder "$work/book" "$2"
}
