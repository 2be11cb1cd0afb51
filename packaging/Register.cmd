@echo off
rem Registers the controls in this folder for you alone; "Register.cmd /u" takes that back. It needs no rights.
set folder=x64
if /i "%PROCESSOR_ARCHITECTURE%"=="x86" if "%PROCESSOR_ARCHITEW6432%"=="" set folder=x86
"%SystemRoot%\System32\regsvr32.exe" /s %1 /n /i:user "%~dp0%folder%\OBKCTRLS.ocx"
if errorlevel 1 goto failed
if "%folder%"=="x86" goto done
if not exist "%SystemRoot%\SysWOW64\regsvr32.exe" goto done
"%SystemRoot%\SysWOW64\regsvr32.exe" /s %1 /n /i:user "%~dp0x86\OBKCTRLS.ocx"
if errorlevel 1 goto failed
:done
exit /b 0
:failed
echo The controls could not be registered.
exit /b 1
