rem Coord Boundaries: 1000.12500 1050.12500 5000.00000 5035.00000
rem Cell Boundaries: 1 6 1 8
 
cd tile0101
 
@if exist gzinv3d.mtx goto skipsen:
gzsen3d mesh grav.obs
 
:skipsen
 
@if exist gzinv3d.rho goto RestartInversion:
gzinv3d gzinv3d.inp
goto :FinishInversion
 
:RestartInversion
 
gzinv3d gzinv3d.restart
 
:FinishInversion
 
dmxerror grav.obs gzinv3d.pre error.dat mesh
DMXinsert mesh gzinv3d.den ..\mesh ..\gzinv3d.den 1 5 1 7 1 25
 
 
cd ..
