rem Coord Boundaries: 1700.00000 1950.00000 5360.00000 5440.00000
rem Cell Boundaries: 5 10 3 5
 
cd tile0201
 
@if exist maginv3d.mtx goto skipsen:
magsen3d magsen3d.inp
 
:skipsen
 
@if exist maginv3d.kap goto RestartInversion:
maginv3d maginv3d.inp
goto :FinishInversion
 
:RestartInversion
 
maginv3d maginv3d.restart
 
:FinishInversion
 
dmxerror mag.obs maginv3d.pre error.dat mesh
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 5 9 3 4 1 5 1 2
 
 
cd ..
