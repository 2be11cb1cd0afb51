#!/bin/bash
# Prints the package's list of what is in it and of everything built in, with licences (SPDX 2.3, tag and value).
#
#   scripts/spdx.sh <folder of the package>
#
#   SOURCE_DATE_EPOCH   when the list was made, in seconds; OBK_COMMIT: what it was made from
# shellcheck source=lib.sh
. "$(dirname "$0")/lib.sh"

[ $# -eq 1 ] || fail "usage: spdx.sh <folder of the package>"
folder=$1
version=$(release)
commit=${OBK_COMMIT:?}
identity=$(printf 'OrbekControls %s %s' "$version" "$commit" | name_to_uuid)

reference() { printf 'SPDXRef-%s' "$(printf '%s' "$1" | tr -c 'A-Za-z0-9.-' '-')"; }

cat <<END
SPDXVersion: SPDX-2.3
DataLicense: CC0-1.0
SPDXID: SPDXRef-DOCUMENT
DocumentName: OrbekControls-$version
DocumentNamespace: urn:uuid:$identity
Creator: Tool: scripts/spdx.sh
Created: $(date -u -d "@${SOURCE_DATE_EPOCH:?}" +%Y-%m-%dT%H:%M:%SZ)

PackageName: OrbekControls
SPDXID: SPDXRef-OrbekControls
PackageVersion: $version
PackageDownloadLocation: NOASSERTION
FilesAnalyzed: false
PackageSourceInfo: commit $commit
PackageLicenseConcluded: MIT
PackageLicenseDeclared: MIT
PackageCopyrightText: $(grep -m 1 '^Copyright' "$root/LICENSE")
Relationship: SPDXRef-DOCUMENT DESCRIBES SPDXRef-OrbekControls
END

built_in=$("$root/scripts/built_in.sh")
while IFS=$'\t' read -r name licensed; do
    cat <<END

PackageName: ${name%%|*}
SPDXID: $(reference "${name%%|*}")
PackageVersion: ${name#*|}
PackageDownloadLocation: NOASSERTION
FilesAnalyzed: false
PackageLicenseConcluded: $licensed
PackageLicenseDeclared: $licensed
PackageCopyrightText: NOASSERTION
END
done < <(awk -F'\t' '{ print $2 "|" $3 "\t" $4 }' <<<"$built_in" | sort -u)

while IFS= read -r file; do
    cat <<END

FileName: ./$file
SPDXID: $(reference "file-$file")
FileChecksum: SHA1: $(sha1sum <"$folder/$file" | cut -d' ' -f1)
FileChecksum: SHA256: $(sha256sum <"$folder/$file" | cut -d' ' -f1)
LicenseConcluded: NOASSERTION
FileCopyrightText: NOASSERTION
Relationship: SPDXRef-OrbekControls CONTAINS $(reference "file-$file")
END
    while IFS=$'\t' read -r product name _; do
        [ "$product" != "$file" ] || printf 'Relationship: %s %s %s\n' "$(reference "file-$file")" \
            "$([ "$name" = fluent-emoji-flat ] && printf CONTAINS || printf STATIC_LINK)" "$(reference "$name")"
    done <<<"$built_in"
done < <(cd "$folder" && find x64 x86 OBKCTRLS.tlb -type f | LC_ALL=C sort)

cat <<END

LicenseID: LicenseRef-public-domain
ExtractedText: <text>Parts of the mingw-w64 runtime are in the public domain; see licences/mingw-w64-common.txt.</text>
LicenseName: public domain
END
