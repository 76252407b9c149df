rem Num data 6
call tile0103.bat
rem Num data 9
rem call tile0102.bat
rem Num data 6
call tile0101.bat

rem Num data 11
call tile0203.bat
rem Num data 14
call tile0202.bat
rem Num data 10
call tile0201.bat

QVerror grav.obs qvinv3d.pre error.dat mesh
