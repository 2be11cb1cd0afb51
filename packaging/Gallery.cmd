@echo off
rem Opens the gallery that fits this Windows. Nothing is installed.
set folder=x64
if /i "%PROCESSOR_ARCHITECTURE%"=="x86" if "%PROCESSOR_ARCHITEW6432%"=="" set folder=x86
start "" "%~dp0%folder%\Gallery.exe" %*
