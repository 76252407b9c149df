rem Num data 6
call tile0203.bat
rem Num data 5
rem call tile0103.bat

rem Num data 57
rem call tile0202.bat
rem Num data 57
call tile0102.bat

rem Num data 57
call tile0201.bat
rem Num data 57
call tile0101.bat

QVerror mag.obs qvinv3d.pre error.dat mesh
