#!/bin/bash
# Inside wine.sh's session: makes pictures of the gallery's pages on a system that looks as asked.
#
#   gallery_pictures.sh <gallery> <folder> <dots per inch> <flat|classic|contrast|dark>
set -eu
gallery=$1 folder=$2 dpi=$3 look=$4

value() { wine reg add "$1" /v "$2" /t "$3" /d "$4" /f > /dev/null; }
value 'HKCU\Control Panel\Desktop' LogPixels REG_DWORD "$dpi"
value 'HKCU\Software\Wine\Fonts' LogPixels REG_DWORD "$dpi"
colours='HKCU\Control Panel\Colors'
case $look in
    flat) ;;
    # The look follows the system's version; before 5 it is the classic one.
    classic) value 'HKLM\Software\Microsoft\Windows NT\CurrentVersion' CurrentVersion REG_SZ 4.0 ;;
    contrast)
        value 'HKCU\Control Panel\Accessibility\HighContrast' Flags REG_SZ 127
        for black in Background AppWorkspace Window ButtonFace Menu Scrollbar InfoWindow ActiveBorder \
            InactiveBorder ActiveTitle InactiveTitle MenuBar; do
            value "$colours" $black REG_SZ '0 0 0'
        done
        for white in WindowText ButtonText MenuText InfoText TitleText WindowFrame ButtonHilight ButtonLight \
            ButtonShadow ButtonDkShadow; do
            value "$colours" $white REG_SZ '255 255 255'
        done
        value "$colours" GrayText REG_SZ '0 255 0'
        value "$colours" Hilight REG_SZ '0 255 255'
        value "$colours" HilightText REG_SZ '0 0 0'
        ;;
    dark)
        for dark in Window AppWorkspace InfoWindow Background; do value "$colours" $dark REG_SZ '30 30 32'; done
        for face in ButtonFace Menu MenuBar Scrollbar ButtonLight; do value "$colours" $face REG_SZ '48 48 52'; done
        for light in WindowText ButtonText MenuText InfoText TitleText WindowFrame HilightText; do
            value "$colours" $light REG_SZ '235 235 235'
        done
        value "$colours" ButtonHilight REG_SZ '84 84 90'
        value "$colours" ButtonShadow REG_SZ '110 110 116'
        value "$colours" ButtonDkShadow REG_SZ '16 16 16'
        value "$colours" GrayText REG_SZ '150 150 150'
        value "$colours" Hilight REG_SZ '0 95 184'
        ;;
    *) echo "unknown look '$look'" >&2; exit 1 ;;
esac
# The next process reads what the system has been told.
wineserver -k 2> /dev/null || true
wineserver -w 2> /dev/null || true
exec wine "$gallery" --pictures "$folder"
