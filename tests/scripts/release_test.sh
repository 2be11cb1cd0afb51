#!/bin/bash
# Checks what scripts/package.sh has made, as those get it who take the release: it unpacks the archives. Prints a line
# for each check, and ends with "N passed, N failed".
#
#   release_test.sh
# shellcheck source=../../scripts/lib.sh
. "$(dirname "$0")/../../scripts/lib.sh"

tests=$root/tests/scripts
version=$(release)
name=OrbekControls-$version
work=$(mktemp -d "${TMPDIR:-/tmp}/obk-release.XXXXXX")
trap 'rm -rf "$work"' EXIT
passed=0 failed=0

# check <rule> <command...>: the rule holds when the command succeeds; what it says is shown when it does not.
check() {
    local rule=$1 said
    shift
    if said=$("$@" 2>&1); then
        passed=$((passed + 1))
        say "ok      $rule"
    else
        failed=$((failed + 1))
        say "FAILED  $rule"
        [ -z "$said" ] || printf '%s\n' "$said" | sed 's/^/        /'
    fi
}

# same <wanted> <found>
same() { diff <(printf '%s\n' "$1") <(printf '%s\n' "$2"); }

tool_of() { case $1 in x64) printf 'x86_64-w64-mingw32' ;; x86) printf 'i686-w64-mingw32' ;; esac; }
facts() { perl "$tests/portable_executable.pl" "$work/$name/$1"; }

# The archives.
sums_fit() { cd "$root/dist" && sha256sum --quiet -c SHA256SUMS && same "$(printf '%s\n' "$name"*.* | sort)" "$(awk '{ print $2 }' SHA256SUMS | sort)"; }
check "The list of checksums has every file of the release" sums_fit
unpacks() { unzip -q "$root/dist/$name.zip" -d "$work" && unzip -q "$root/dist/$name-symbols.zip" -d "$work"; }
check "The archives unpack" unpacks
again() {
    cp "$root/dist/$name.zip" "$root/dist/$name-symbols.zip" "$work" && sleep 2.1 &&
        "$root/scripts/package.sh" >/dev/null && cmp "$work/$name.zip" "$root/dist/$name.zip" &&
        cmp "$work/$name-symbols.zip" "$root/dist/$name-symbols.zip"
}
check "Packed again the archives are the same" again

# The version.
versions_agree() {
    local file
    for file in x64/OBKCTRLS.ocx x86/OBKCTRLS.ocx x64/Gallery.exe x86/Gallery.exe; do
        same "version $version.0" "$(facts "$file" | grep ^version)" || return 1
    done
    for file in x64 x86; do
        grep -qF "name=\"OBKCTRLS\" version=\"$version.0\"" "$work/$name/$file/OBKCTRLS.manifest" || return 1
        grep -qaF "name=\"Orbek.Gallery\" version=\"$version.0\"" "$work/$name/$file/Gallery.exe" || return 1
        grep -qaF "Orbek Controls $version" "$work/$name/$file/OBKCTRLS.ocx" || return 1
    done
    grep -qaF "Orbek Controls $version" "$work/$name/OBKCTRLS.tlb" && grep -qF "## $version" "$work/$name/CHANGELOG.md" &&
        grep -qF "Orbek Controls $version" "$work/$name/README.txt"
}
check "Resources, manifests, type library, changes and first page have the version" versions_agree

# The finished programs.
may_import="advapi32.dll comctl32.dll comdlg32.dll gdi32.dll imm32.dll kernel32.dll msimg32.dll msvcrt.dll ole32.dll
    oleacc.dll oleaut32.dll shell32.dll user32.dll"
imports_only_the_system() {
    local found foreign
    found=$("$(tool_of "${1%%/*}")-objdump" -p "$work/$name/$1" | awk '/DLL Name:/ { print tolower($3) }' | sort)
    [ -n "$found" ] || return 1
    # shellcheck disable=SC2086  # a list of words
    foreign=$(comm -23 <(printf '%s\n' "$found") <(printf '%s\n' $may_import | sort))
    [ -z "$foreign" ] || { say "foreign: $foreign"; return 1; }
}
# Dynamic base (0x40) and no execution of data (0x100); the 64-bit ones also high entropy (0x20).
is_hardened() {
    local characteristics wanted=$((0x140)) found
    found=$(facts "$1")
    [ "${1%%/*}" = x86 ] || wanted=$((0x160))
    characteristics=$(awk '$1 == "characteristics" { print $2 }' <<<"$found")
    [ $((characteristics & wanted)) -eq $wanted ] || { say "$characteristics"; return 1; }
    same "section .text r-x" "$(grep 'section.*x$' <<<"$found")" && grep -q '^section .reloc ' <<<"$found" &&
        same "machine ${1%%/*}" "$(grep ^machine <<<"$found")"
}
# In functions with arrays, all through our own code, not only in what the compiler brings.
guards_its_stack() {
    local calls
    calls=$("$(tool_of "${1%%/*}")-objdump" -d "$root/build/windows-${1%%/*}/products/${1#*/}" |
        grep -c 'call.*<_*stack_chk_fail>')
    [ "$calls" -ge 200 ] || { say "$calls calls"; return 1; }
}
has_no_time_or_place() {
    same "time 0" "$(facts "$1" | grep ^time)" || return 1
    ! grep -qaF "$root" "$work/$name/$1" && ! grep -qaF "$root/" "$work/$name-symbols/$1.debug"
}
for architecture in x64 x86; do
    for product in OBKCTRLS.ocx Gallery.exe; do
        file=$architecture/$product
        check "$file imports only from the system" imports_only_the_system "$file"
        check "$file lies anywhere, and executes nothing but its code, which nothing writes" is_hardened "$file"
        check "$file guards its stack" guards_its_stack "$file"
        check "$file tells neither when nor where it was built" has_no_time_or_place "$file"
    done
    exports() {
        "$(tool_of "$1")-objdump" -p "$work/$name/$1/OBKCTRLS.ocx" |
            sed -nE 's/^[[:space:]]+\[ *[0-9]+\] ([A-Za-z_].*)$/\1/p' | sed -n '/^Dll/p; /^[^D]/p' | sort -u
    }
    check "$architecture/OBKCTRLS.ocx exports the five functions of a server" same \
        "$(printf '%s\n' DllCanUnloadNow DllGetClassObject DllInstall DllRegisterServer DllUnregisterServer)" \
        "$(exports $architecture)"
    # What a crash report says of a stripped server, and where that is.
    finds_lines() {
        local tool symbols=$work/$name-symbols base place found
        tool=$(tool_of "$1")
        base=0x$("$tool-objdump" -p "$work/$name/$1/OBKCTRLS.ocx" | awk '$1 == "ImageBase" { print $2 }')
        place=0x$("$tool-nm" -C "$root/build/windows-$1/products/OBKCTRLS.ocx" |
            awk '$3 ~ /^_?DllGetClassObject(@12)?$/ && $2 == "T" { print $1; exit }')
        found=$(printf 'fault at OBKCTRLS.ocx+0x%x\n' $((place - base)) | bash "$symbols/where.sh" "$1")
        [[ $found =~ DllGetClassObject.*exports.cpp:[1-9] ]] || { say "$found"; return 1; }
        # The debug link names the file, and its sum fits it: else the tool would not take it.
        cp "$work/$name/$1/OBKCTRLS.ocx" "$symbols/$1"
        found=$("$tool-addr2line" -f -s -e "$symbols/$1/OBKCTRLS.ocx" "$place" | paste -sd' ')
        [[ $found =~ exports.cpp:[1-9] ]] || { say "by the debug link: $found"; return 1; }
    }
    check "$architecture: an address of the stripped server leads to a line" finds_lines $architecture
done

# The list of what is built in.
list=$work/$name/$name.spdx
list_is_whole() {
    local file sum missing
    while IFS=$'\t' read -r file sum; do
        same "$sum" "$(sha256sum <"$work/$name/$file" | cut -d' ' -f1)" || return 1
    done < <(awk '/^FileName: / { file = substr($2, 3) } /^FileChecksum: SHA256: / { print file "\t" $3 }' "$list")
    missing=$(comm -13 <(sed -n 's/^SPDXID: //p' "$list" | sort) \
        <(sed -nE 's/^Relationship: (\S+) \S+ (\S+)$/\1\n\2/p' "$list" | sort -u))
    [ -z "$missing" ] || { say "not described: $missing"; return 1; }
    for file in x64/OBKCTRLS.ocx x86/OBKCTRLS.ocx; do
        for sum in zlib libstdc-- libgcc winpthreads mingw-w64-runtime; do
            grep -qxF "Relationship: SPDXRef-file-${file/\//-} STATIC_LINK SPDXRef-$sum" "$list" ||
                { say "$file without $sum"; return 1; }
        done
    done
    [ "$(find "$work/$name/licences" -size +1000c | wc -l)" -ge 4 ]
}
check "The list of what is built in fits the files, and the licences are there" list_is_whole

# The imports and the samples: of the package, as they lie there.
check "The imports say what the contract says" perl "$tests/imports_agree.pl" "$work/$name/OBKCTRLS.idl" "$work/$name/imports"
names_constants() {
    local file
    for file in OBKCTRLS.bas OBKCTRLS.vbs; do
        same "$(sed -nE 's/^        (\w+) = (-?[0-9]+),?$/\1 \2/p' "$work/$name/OBKCTRLS.idl")" \
            "$(sed -nE 's/^(Public )?Const (\w+)( As Long)? = (-?[0-9]+)\r?$/\2 \4/p' "$work/$name/imports/$file")" || return 1
    done
}
check "The constants for Basic are those of the contract" names_constants
programs=$work/installers/programs
mkdir -p "$programs"
compiles_cpp() {
    "$(tool_of "$1")-g++-posix" -std=c++17 -Wall -Wextra -Werror -static -I "$work/$name/imports" \
        "$work/$name/samples/cpp/order.cpp" -o "$2" -lole32 -loleaut32 -luuid
}
check "The sample in C++ compiles for 64 bits" compiles_cpp x64 "$programs/cpp.exe"
check "The sample in C++ compiles for 32 bits" compiles_cpp x86 "$work/cpp32.exe"
check "The sample in Pascal compiles" "$root/scripts/pascal.sh" "$work/$name/samples/pascal/order.pas" "$programs/pascal.exe" \
    "$work/$name/imports"
check "The form of Lazarus compiles" "$root/scripts/pascal.sh" --lazarus "$work/$name/samples/lazarus/order.lpr" \
    "$programs/lazarus.exe" "$work/$name/imports"
check "The sample in C# compiles" mcs -nologo -warnaserror -target:winexe -out:"$work/form.exe" -r:System.Windows.Forms \
    -r:System.Drawing "$work/$name/samples/csharp/OrderForm.cs" "$work/$name/imports/OBKCTRLS.cs"

# What "Copy code" of the gallery gives on each of its pages, each as a form of its own.
copies_code() {
    local page
    "$root/scripts/wine.sh" x64 120 "$work/$name/x64/Gallery.exe" --code "$(windows_path "$work/code")" || return 1
    for page in bas pas cs; do
        [ "$(find "$work/code" -name "*.$page" -size +100c | wc -l)" -ge 8 ] || { say "pages in $page are missing"; return 1; }
    done
}
check "The gallery writes the code of each page in three languages" copies_code
copied_pascal_compiles() {
    local page number=0 sample=$work/$name/samples/lazarus/order.lpr program=$work/code/pages.lpr bodies=
    {
        sed -n '1,/^type$/p' "$sample" | sed 's/^program .*/program pages;/'
        for page in "$work"/code/*.pas; do
            number=$((number + 1))
            printf '  TForm%d = class(TForm)\n' $number
            sed -n 's|^//   ||p' "$page"
            sed -n '/^    function Place/p' "$sample"
            printf '    constructor CreateNew(AOwner: TComponent; Num: Integer = 0); override;\n  end;\n'
            bodies+=$(printf 'constructor TForm%d.CreateNew(AOwner: TComponent; Num: Integer);\nbegin\n  inherited CreateNew(AOwner, Num);\n' $number
                cat "$page"
                printf 'end;\n'
                sed -n '/^function TOrderForm.Place/,/^end;/p' "$sample" | sed "s/TOrderForm/TForm$number/")$'\n'
        done
        printf '%s\nbegin\nend.\n' "$bodies"
    } >"$program"
    "$root/scripts/pascal.sh" --lazarus "$program" "$work/code/pages.exe" "$work/$name/imports"
}
check "The code that the gallery copies in Pascal compiles" copied_pascal_compiles
copied_csharp_compiles() {
    local page number=0
    {
        printf 'using System;\nusing System.Drawing;\nusing System.Windows.Forms;\nusing OBKCTRLS;\n'
        for page in "$work"/code/*.cs; do
            number=$((number + 1))
            printf 'public class Form%d : Form\n{\n    protected override void OnShown(EventArgs e)\n    {\n' $number
            cat "$page"
            printf '    }\n}\n'
        done
    } >"$work/pages.cs"
    mcs -nologo -warnaserror -target:library -out:"$work/pages.dll" -r:System.Windows.Forms -r:System.Drawing "$work/pages.cs" \
        "$work/$name/imports/OBKCTRLS.cs"
}
check "The code that the gallery copies in C# compiles" copied_csharp_compiles
# example <language>: the one in that language on the page about hosts.
example() { sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/{ /^\`\`\`/!p }" "$root/docs/hosts.md"; }
host_examples_compile() {
    {
        printf '#include <obkctrls.h>\n#include <string>\nint main() {\n    OleInitialize(nullptr);\n    double total = 0, price = 2;\n'
        example cpp
        printf '    return total > 0;\n}\n'
    } >"$work/host.cpp"
    x86_64-w64-mingw32-g++-posix -std=c++17 -Wall -Werror -static -I "$work/$name/imports" "$work/host.cpp" -o "$work/host.exe" \
        -lole32 -loleaut32 -luuid || return 1
    {
        printf "program host;\\n{\$MODE DELPHI}\\nuses Interfaces, Forms, Controls, Classes, ActiveXContainer, OBKCTRLS;\\n"
        printf 'type\n  THost = class(TForm)\n    FGrid: TGridEdit;\n    ActiveXContainer1: TActiveXContainer;\n'
        printf '    procedure GridChanged(Sender: TObject);\n    procedure Start;\n  end;\n'
        printf 'procedure THost.GridChanged(Sender: TObject);\nbegin\nend;\nprocedure THost.Start;\nbegin\n'
        example pascal
        printf 'end;\nbegin\nend.\n'
    } >"$work/host.lpr"
    "$root/scripts/pascal.sh" --lazarus "$work/host.lpr" "$work/host-pascal.exe" "$work/$name/imports"
}
check "The examples in C++ and Pascal on the page about hosts compile" host_examples_compile
# On a form the controls stand already; here a script makes them.
copied_basic_is_script() {
    local page
    for page in "$work"/code/*.bas; do
        {
            sed -nE "s/^    ' (\w+): (\S+) at .*/Set \1 = CreateObject(\"\2\")/p" "$page"
            sed 's/ChrW(/Chr(/g' "$page"
            printf 'Form_Load\r\nWScript.Echo "ok"\r\n'
        } >"$work/installers/examples/$(basename "$page" .bas).vbs"
    done
    [ "$(grep -lE '^Set \w+ = CreateObject' "$work"/installers/examples/*.vbs | wc -l)" -ge 8 ]
}

# The documentation.
check "The documentation leads everywhere, has every member and finds it" node "$tests/site_test.mjs" "$work/$name/docs" \
    "$root/src/library/contracts/$(cd "$root/src/library/contracts" && printf '%s\n' *.txt | sort -V | tail -n 1)"
check "The documentation has examples" node "$tests/examples.mjs" "$root/docs" "$work/installers/examples"
check "The code that the gallery copies in Basic is ready for the script host" copied_basic_is_script
# The script host reads the module for VBA, but for the types, the dialog and the attribute.
module_as_script() {
    {
        printf 'Dim answer\n'
        sed -E '/^(Attribute|Option)/d; s/ As (Object|String|Long)//g; s/MsgBox /answer = /' "$work/$name/samples/vba/Order.bas"
        printf 'On Error Resume Next\nShowOrder\n'
        printf 'If answer = "2 rows, 12 of Pencil" Then WScript.Echo "ok" Else WScript.Echo "vba: " & answer & Err.Description\n'
    } | sed 's/$/\r/' >"$work/installers/examples/vba.vbs"
    grep -q 'answer = grid' "$work/installers/examples/vba.vbs"
}
check "The module for VBA is one that the script host can read" module_as_script
check "The project for classic Basic uses what the contract has" perl "$tests/classic_project.pl" "$work/$name/OBKCTRLS.idl" \
    "$work/$name/samples/classic"
# The form's code, beside controls that stand on no form.
form_as_script() {
    local form=$work/$name/samples/classic/Order.frm
    {
        printf 'Dim Caption\n'
        sed -nE 's/^ +Begin (OBKCTRLS\.\w+) (\w+).*/Set \2 = CreateObject("\1")/p' "$form"
        sed '1,/^Option Explicit/d; s/ As Integer//; s/\r$//' "$form"
        printf '%s\n' Form_Load 'GridEdit1.GridSetFocus 1, 0' GridEdit1_NewRowSelected 'UpDownTextBox1.Text = "7"' \
            UpDownTextBox1_Change 'GridEdit1_NewRow 2' \
            'answer = GridEdit1.CellTextRead(0, 1) & GridEdit1.CellTextRead(1, 1) & Caption' \
            'If answer = "73Order, with a new row 2" Then WScript.Echo "ok" Else WScript.Echo "form: " & answer'
    } | sed 's/$/\r/' >"$work/installers/examples/form.vbs"
    grep -q '^Set GridEdit1 = ' "$work/installers/examples/form.vbs"
}
check "The form for classic Basic is one that the script host can read" form_as_script

# The installers.
needs_no_rights() {
    # 8: without rights; 2: compressed. And no property that makes it one for the machine.
    msiinfo suminfo "$root/dist/$name-user.msi" | grep -qE '^Source: 10( |$)' &&
        ! msiinfo export "$root/dist/$name-user.msi" Property | grep -q ALLUSERS
}
check "The user's installer asks for no rights" needs_no_rights
names_classes() {
    local id
    while IFS=: read -r _ id; do
        grep -qi "^class .* $id " "$root"/src/library/contracts/*.txt || { say "$id is no class"; return 1; }
    done < <(grep -rhoiE 'clsid:[0-9A-F-]{36}' "$work/$name/samples")
}
check "The samples name classes that there are" names_classes
installers_work() {
    local folder=$work/installers
    cp "$root/dist/$name.msi" "$folder/newer.msi"
    cp "$root/dist/$name-user.msi" "$folder/newer-user.msi"
    mv "$work/$name" "$folder/package"
    printf '%s' "$version" >"$folder/version"
    "$root/scripts/installers.sh" "$folder/package" "$folder/older.msi" "$folder/older-user.msi" 0.9.0 || return 1
    "$root/scripts/wine.sh" x64 600 "$tests/installers_in_wine.sh" "$folder" | tee "$work/installers.log"
}
say "$(installers_work 2>&1)"
good=$(grep -c "^ok " "$work/installers.log" || true) bad=$(grep -c "^FAILED " "$work/installers.log" || true)
wanted=$(grep -c '^check "' "$tests/installers_in_wine.sh")
passed=$((passed + good)) failed=$((failed + wanted - good))
[ $((good + bad)) -eq "$wanted" ] || say "The installers' checks did not come to their end: $((good + bad)) of $wanted"

say "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
