rem Coord Boundaries: 1700.00000 1950.00000 5520.00000 5640.00000
rem Cell Boundaries: 5 10 7 10
 
cd tile0203
 
 
rem extract initial model
 
DMXextract ..\mesh ..\start.den start.den 3 9 5 9 1 5
 
 
rem extract reference model
 
DMXextract ..\mesh ..\known.den known.den 3 9 5 9 1 5
 
@if exist gzinv3d.mtx goto skipsen:
gzsen3d mesh grav.obs topo.dat
 
:skipsen
 
@if exist gzinv3d.rho goto RestartInversion:
gzinv3d gzinv3d.inp
goto :FinishInversion
 
:RestartInversion
 
gzinv3d gzinv3d.restart
 
:FinishInversion
 
dmxerror grav.obs gzinv3d.pre error.dat mesh
DMXinsert mesh gzinv3d.den ..\mesh ..\gzinv3d.den 5 9 7 9 1 5 1 2
 
 
cd ..
