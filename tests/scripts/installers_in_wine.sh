#!/bin/bash
# Installs, upgrades, repairs and removes in Wine, inside wine.sh's session: prints a line for each rule, "ok" or
# "FAILED" before it.
#
#   installers_in_wine.sh <folder with older.msi, older-user.msi, newer.msi, newer-user.msi, the package itself in
#       "package", its version in "version", the samples' programs in "programs", and the
#       documentation's examples in "examples">
set -u
folder=$1
here=$(cd "$(dirname "$0")" && pwd)
cd "$folder" || exit 1
all="made: UpDownTextBox DateCalendar ButtonPalette ButtonArrow GridEdit PageTab lns"
drive=$WINEPREFIX/drive_c

check() {
    local rule=$1 said
    shift
    if said=$("$@" 2>&1); then
        printf 'ok      %s\n' "$rule"
    else
        printf 'FAILED  %s\n' "$rule"
        printf '%s\n' "$said" | tail -n 30 | sed 's/^/        /'
    fi
}

same() { diff <(printf '%s\n' "$1") <(printf '%s\n' "$2"); }
windows_path() { local path=Z:$1; printf '%s' "${path//\//\\}"; }
created() { wine cscript /nologo "$(windows_path "$here/installed.vbs")" | tr -d '\r'; }
installer() { wine msiexec "$1" "$(windows_path "$folder/$2")" /qn; }

# classes <HKLM|HKCU>: all that is registered, without the installer's own lists.
classes() {
    rm -f "$folder/classes.reg"
    wine reg export "$1\\Software\\Classes" "$(windows_path "$folder/classes.reg")" /y >/dev/null 2>&1
    iconv -f utf-16 -t utf-8 "$folder/classes.reg" 2>/dev/null | tr -d '\r' |
        awk '/^\[/ { own = index($0, "\\Software\\Classes\\Installer") } !own'
}
files() { find "$drive" -type f ! -path '*/windows/Installer/*' ! -path '*/Temp/*' ! -name '*.reg' | sort; }

# value_at <registry text> <key below the classes>: its default value.
value_at() {
    key="$2]" awk 'BEGIN { key = tolower(ENVIRON["key"]) }
        /^\[/ { found = substr(tolower($0), length($0) - length(key) + 1) == key && index(tolower($0), "classes\\" key) }
        found && /^@=/ { print substr($0, 4, length($0) - 4); exit }' <<<"$1" | sed 's/\\\\/\\/g'
}
grid='CLSID\{94ED36F5-D7CA-4FA1-A8BC-18E05B0314D6}'
types='TypeLib\{D62DE28A-98B2-4069-BC98-F5F9CA9661C2}\1.0\0'

installed_files_are() {
    local file
    for file in x64/OBKCTRLS.ocx x86/OBKCTRLS.ocx x64/Gallery.exe x86/OBKCTRLS.manifest; do
        cmp "$folder/package/$file" "$1/$file" || return 1
    done
    same "$(cd "$folder/package" && find . -type f | sort)" "$(cd "$1" && find . -type f | sort)"
}

# A user who has logged in once has classes of his own; a new prefix has none yet.
wine reg add 'HKCU\Software\Classes' /f >/dev/null 2>&1
# On Windows the 32-bit programs' list of classes is never empty.
wine reg add 'HKLM\Software\Classes\Wow6432Node\CLSID\{00000000-0000-0000-0000-000000000001}' /f >/dev/null 2>&1
# The script host registers things of its own when it first runs.
created >/dev/null
machine_before=$(classes HKLM) user_before=$(classes HKCU) files_before=$(files)
nothing_is_left() {
    same "$machine_before" "$(classes HKLM)" && same "$user_before" "$(classes HKCU)" && same "$files_before" "$(files)" &&
        [ ! -e "$1" ] && same "made:" "$(created)"
}

pictures() { find "$folder/pictures" -name '*.png' | wc -l; }
gallery_opens() {
    local tries=0
    rm -rf "$folder/pictures" && mkdir "$folder/pictures" &&
        wine cmd /c "$(windows_path "$folder/package/Gallery.cmd")" --pictures "$(windows_path "$folder/pictures")"
    # The command does not wait for what it opens.
    until [ "$(pictures)" -ge 7 ]; do
        tries=$((tries + 1))
        [ $tries -lt 300 ] || return 1
        sleep 0.2
    done
}
check "One command opens the gallery of the unpacked archive" gallery_opens

# For the machine.
place="$drive/Program Files/Orbek Controls"
check "Before, no class can be created" same "made:" "$(created)"
check "The machine's installer installs" installer /i older.msi
check "Then every class can be created by its name" same "$all" "$(created)"
check "The upgrade installs over the older version" installer /i newer.msi
both_halves() {
    local registered
    registered=$(classes HKLM)
    same 'C:\Program Files\Orbek Controls\x64\OBKCTRLS.ocx' "$(value_at "$registered" "$grid\\InprocServer32")" &&
        same 'C:\Program Files\Orbek Controls\x86\OBKCTRLS.ocx' \
            "$(value_at "$registered" "Wow6432Node\\$grid\\InprocServer32")" &&
        same 'C:\Program Files\Orbek Controls\x86\OBKCTRLS.ocx' "$(value_at "$registered" "$types\\win32")" &&
        same 'C:\Program Files\Orbek Controls\x64\OBKCTRLS.ocx' "$(value_at "$registered" "$types\\win64")"
}
check "Both servers are registered, each where its programs look" both_halves
check "Every file of the package is installed" installed_files_are "$place"
one_product() {
    local products
    products=$(wine reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' /s 2>/dev/null | tr -d '\r' |
        grep -A 20 -F 'Orbek Controls' | grep -F DisplayVersion | awk '{ print $3 }')
    same "$1" "$products"
}
check "Only the newer version is in the list of programs" one_product "$(cat version)"
says_ok() { same ok "$("$@" 2>&1 | tr -d '\r' | tail -n 1)"; }
check "The sample in C++ runs" says_ok wine programs/cpp.exe
check "The sample in Pascal runs" says_ok wine programs/pascal.exe
# Its caption says what the number field told it.
form_opens() {
    local form tries=0
    wine programs/lazarus.exe >/dev/null 2>&1 &
    form=$!
    until xdotool search --name '^Order of 12$' >/dev/null 2>&1; do
        tries=$((tries + 1))
        if [ $tries -gt 300 ] || ! kill -0 $form 2>/dev/null; then
            kill $form 2>/dev/null
            echo "no form"
            return 1
        fi
        sleep 0.2
    done
    kill $form
    wait $form 2>/dev/null
    return 0
}
check "The form of Lazarus opens and hears its controls" form_opens
check "The sample for scripts runs" says_ok wine cscript /nologo \
    "$(windows_path "$drive/Program Files/Orbek Controls/samples/script/order.vbs")"
examples_run() {
    local example said bad=0
    for example in "$folder"/examples/*.vbs; do
        said=$(wine cscript /nologo "$(windows_path "$example")" 2>&1 | tr -d '\r')
        [ "$said" = ok ] || { printf '%s\n' "$said"; bad=1; }
    done
    return $bad
}
check "Every example of the documentation runs and answers what it says" examples_run
refuses() { ! installer /i older.msi && same "$all" "$(created)" && one_product "$(cat version)"; }
check "The older version does not go over the newer one" refuses
repairs() {
    rm "$place/x64/OBKCTRLS.ocx"
    wine reg delete "HKLM\\Software\\Classes\\$grid\\InprocServer32" /f >/dev/null 2>&1
    [[ $(created) != *GridEdit* ]] || { echo "nothing was broken"; return 1; }
    # What /fomus stands for, which this Wine refuses.
    wine msiexec /i "$(windows_path "$folder/newer.msi")" REINSTALL=ALL REINSTALLMODE=omus /qn && same "$all" "$(created)" && installed_files_are "$place"
}
check "Repairing brings back a lost file and a lost key" repairs
check "The machine's installer removes" installer /x newer.msi
check "Nothing is left, and no class can be created" nothing_is_left "$place"

# For one user. This Wine does not look a user's classes up, so what was written counts.
place="$drive/users/$(id -un)/AppData/Local/Orbek Controls"
check "A user's installer installs" installer /i older-user.msi
check "A user's upgrade installs over the older version" installer /i newer-user.msi
for_the_user() {
    local registered node at where=${place#"$drive"}
    registered=$(classes HKCU)
    where="C:${where//\//\\}"
    same "$machine_before" "$(classes HKLM)" || return 1
    for at in "$grid x64" "Wow6432Node\\$grid x86"; do
        node=${at% *}
        same "$where\\${at#* }\\OBKCTRLS.ocx" "$(value_at "$registered" "$node\\InprocServer32")" || return 1
    done
    same '{94ED36F5-D7CA-4FA1-A8BC-18E05B0314D6}' "$(value_at "$registered" 'OBKCTRLS.GridEdit\CLSID')"
}
check "It registers both servers for the user alone" for_the_user
check "Every file of the package is in the user's folder" installed_files_are "$place"
activates() {
    rm -rf "$folder/pictures" && mkdir "$folder/pictures" &&
        wine "$place/x64/Gallery.exe" --pictures "$(windows_path "$folder/pictures")" &&
        [ "$(pictures)" -ge 7 ]
}
check "What it installed works by its manifest" activates
check "A user's installer removes" installer /x newer-user.msi
check "Nothing of a user's is left" nothing_is_left "$place"

# The unpacked archive where it lies. There is no 32-bit regsvr32 here.
registers_itself() {
    local command
    command=$(windows_path "$folder/package/Register.cmd")
    wine cmd /c "$command" || return 1
    same "$(windows_path "$folder/package/x64/OBKCTRLS.ocx")" "$(value_at "$(classes HKCU)" "$grid\\InprocServer32")" || return 1
    same "$machine_before" "$(classes HKLM)" || return 1
    wine cmd /c "$command" /u && same "$user_before" "$(classes HKCU)"
}
check "One command registers the unpacked archive for the user, and takes it back" registers_itself
