@echo off
rem Takes back what register.cmd did.
setlocal
pushd "%~dp0"
set program=%SystemRoot%\@SYSTEM_FOLDER@\regsvr32.exe
if not exist "%program%" set program=%SystemRoot%\System32\regsvr32.exe
set failed=
for %%m in (Kov*.dll) do (
    "%program%" /s /u "%%~fm"
    if errorlevel 1 set failed=yes
    if errorlevel 1 echo %%m: still registered.
)
if "%failed%" == "yes" echo Run this script as an administrator.
if "%failed%" == "yes" exit /b 1
echo No longer registered.
