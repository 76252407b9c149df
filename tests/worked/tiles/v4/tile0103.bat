rem Coord Boundaries: 1600.00000 1700.00000 5520.00000 5640.00000
rem Cell Boundaries: 3 5 7 10
 
cd tile0103
 
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
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 3 4 7 9 1 5 1 2
 
 
cd ..
