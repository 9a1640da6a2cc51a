@echo off
rem Registers the components in this folder for all users, which takes an administrator.
setlocal
pushd "%~dp0"
set program=%SystemRoot%\@SYSTEM_FOLDER@\regsvr32.exe
if not exist "%program%" set program=%SystemRoot%\System32\regsvr32.exe
set failed=
for %%m in (Kov*.dll) do (
    "%program%" /s "%%~fm"
    if errorlevel 1 set failed=yes
    if errorlevel 1 echo %%m: not registered.
)
if "%failed%" == "yes" echo Run this script as an administrator.
if "%failed%" == "yes" exit /b 1
echo Registered. Keep this folder where it is, or run unregister.cmd before you move or delete it.
