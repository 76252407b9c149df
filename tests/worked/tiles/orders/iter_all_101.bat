rem Num data 8
call tile0201.bat
rem Num data 5
call tile0101.bat

rem Num data 6
call tile0202.bat
rem Num data 4
call tile0102.bat

rem Num data 6
rem call tile0203.bat
rem Num data 3
rem call tile0103.bat

QVerror mag.obs qvinv3d.pre error.dat mesh
