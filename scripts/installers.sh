#!/bin/bash
# Makes the two installers of a package: for the machine, and for one user who needs no rights. Each has both servers
# and registers both; the next version takes the place of this one.
#
#   scripts/installers.sh <folder of the package> <machine's .msi> <user's .msi> [version]
#
# The version is that of the sources; tests of upgrading make others.
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

[ $# -ge 3 ] || fail "usage: installers.sh <folder of the package> <machine's .msi> <user's .msi> [version]"
package=$(realpath "$1")
version=${4:-$(release)}
work=$(mktemp -d "${TMPDIR:-/tmp}/obk-installers.XXXXXX")
trap 'rm -rf "$work"' EXIT

# What Windows finds older versions by: never to be changed.
declare -A upgrade_codes=(
    [machine]=6C1D5B0E-93E4-4F0B-8A57-2F4C19D7E860
    [user]=B7E83A94-2D06-45C1-9F3B-70A5D82C4E1F)

# Identities follow from what they name: a product's from its version, a component's from its folder for ever.
identity() { printf 'OrbekControls %s' "$*" | name_to_uuid | tr a-f A-F; }
element_id() { printf '%s_%s' "$1" "$(printf '%s' "$2" | tr -c 'A-Za-z0-9' '_')"; }
escaped() { sed 's/&/\&amp;/g; s/</\&lt;/g; s/>/\&gt;/g; s/"/\&quot;/g'; }

# registry <scope> <architecture...>: the values of packaging/registry.tsv. A component for 32 bits that is installed
# for the machine gets to the keys of its programs by itself; for a user they are named.
registry() {
    local scope=$1 hive=HKLM
    shift
    [ "$scope" = machine ] || hive=HKCU
    escaped <"$root/packaging/registry.tsv" | awk -F'\t' -v scope="$scope" -v hive="$hive" -v wanted=" $* " '
        !/^#/ && index(wanted, " " $1 " ") {
            key = "Software\\Classes\\" (scope == "user" && $1 == "x86" ? "Wow6432Node\\" : "") $2
            text = $4
            gsub(/\[x64\]/, "[folder_x64]", text)
            gsub(/\[x86\]/, "[folder_x86]", text)
            printf "        <RegistryValue Root=\"%s\" Key=\"%s\"%s Type=\"string\" Value=\"%s\"/>\n",
                hive, key, ($3 == "" ? "" : " Name=\"" $3 "\""), text
        }'
}

# folder <scope> <path below the package, or .> <indent>: a folder with its files and the folders in it.
folder() {
    local scope=$1 path=$2 indent=$3 file inner win64=yes key=' KeyPath="yes"'
    [ "$path" != x86 ] || win64=no
    if [ -n "$(find "$package/$path" -maxdepth 1 -type f -print -quit)" ]; then
        printf '%s<Component Id="%s" Guid="%s" Win64="%s">\n' "$indent" "$(element_id component "$path")" \
            "$(identity "component $scope $path")" "$win64"
        while IFS= read -r file; do
            printf '%s  <File Id="%s" Name="%s" Source="%s"%s/>\n' "$indent" "$(element_id file "$path/$file")" "$file" \
                "$path/$file" "$key"
            key=
        done < <(cd "$package/$path" && find . -maxdepth 1 -type f -printf '%f\n' | LC_ALL=C sort |
            awk '/\.ocx$/ { print; next } { rest = rest $0 "\n" } END { printf "%s", rest }')
        case $scope-$path in
            *-x64) registry "$scope" x64 shared "$([ "$scope" = machine ] || printf x86)" ;;
            machine-x86) registry machine x86 ;;
        esac
        printf '%s  <RemoveFolder Id="%s" On="uninstall"/>\n' "$indent" "$(element_id remove "$path")"
        printf '%s</Component>\n' "$indent"
    fi
    while IFS= read -r inner; do
        local below=${path#.}
        below=${below:+$below/}$inner
        printf '%s<Directory Id="%s" Name="%s">\n' "$indent" "$(element_id folder "$below")" "$inner"
        folder "$scope" "$below" "$indent  "
        printf '%s</Directory>\n' "$indent"
    done < <(cd "$package/$path" && find . -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | LC_ALL=C sort)
}

# installer <machine|user> <file.msi>
installer() {
    local scope=$1 file=$2 source=$work/$1.wxs
    local place='ProgramFiles64Folder' per=perMachine title='Orbek Controls'
    if [ "$scope" = user ]; then place=LocalAppDataFolder per=perUser title='Orbek Controls (for this user)'; fi
    folder "$scope" . '          ' >"$work/folders"
    {
        cat <<END
<?xml version="1.0" encoding="UTF-8"?>
<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi">
  <Product Id="$(identity "product $scope $version")" UpgradeCode="${upgrade_codes[$scope]}" Name="$title"
      Version="$version" Manufacturer="Orbek Controls authors" Language="1033">
    <Package InstallerVersion="200" Compressed="yes" InstallScope="$per" Description="$title $version"/>
    <MajorUpgrade DowngradeErrorMessage="A newer version of [ProductName] is installed already."/>
    <Media Id="1" Cabinet="controls.cab" EmbedCab="yes"/>
    <Property Id="ARPNOMODIFY" Value="1"/>
    <Directory Id="TARGETDIR" Name="SourceDir">
      <Directory Id="ProgramMenuFolder">
        <Directory Id="folder_menu" Name="$title">
          <Component Id="component_menu" Guid="$(identity "component $scope menu")" Win64="yes">
            <RegistryValue Root="HKCU" Key="Software\\Orbek Controls" Name="Menu ($scope)" Type="string" Value="$version" KeyPath="yes"/>
            <Shortcut Id="shortcut_gallery" Name="Gallery" Target="[folder_x64]Gallery.exe"/>
            <Shortcut Id="shortcut_readme" Name="First steps" Target="[INSTALLDIR]README.txt"/>
            <RemoveFolder Id="remove_menu" On="uninstall"/>
          </Component>
        </Directory>
      </Directory>
      <Directory Id="$place">
        <Directory Id="INSTALLDIR" Name="Orbek Controls">
END
        cat "$work/folders"
        cat <<END
        </Directory>
      </Directory>
    </Directory>
    <Feature Id="everything" Level="1" Title="$title">
      <ComponentRef Id="component_menu"/>
END
        sed -nE 's/^ *<Component Id="([^"]+)".*/      <ComponentRef Id="\1"\/>/p' "$work/folders"
        printf '    </Feature>\n  </Product>\n</Wix>\n'
    } >"$source"
    # It knows sources only below the folder that it runs in.
    (cd "$package" && wixl -a x64 -o "$file" "$source") >"$work/wixl.log" 2>&1 || { cat "$work/wixl.log" >&2; fail "wixl made no $file"; }
}

installer machine "$(realpath -m "$2")"
installer user "$(realpath -m "$3")"
