rem Coord Boundaries: 1700.00000 1950.00000 5520.00000 5640.00000
rem Cell Boundaries: 5 10 7 10
 
cd tile0203
 
 
rem extract reference model
 
DMXextract ..\mesh ..\known.den grav3d_ref.den 4 9 6 9 1 4 -Ref ..\rocks.lkp
 
 
rem extract bounds file
 
DMXextract ..\mesh ..\low.bnd grav3d_bounds.den 4 9 6 9 1 4 -Bounds ..\rocks.lkp
 
 
rem run coarse forward model and calculate residual
 
@if exist grav.obs goto skipForwardModel:
 
DMXextract ..\mesh ..\refined.den gzinv3d.mod  4 9 6 9 1 4 ..\grav.obs
 
copy ..\..\input\base.msh tilenull.msh
DMXnullvol ..\..\input\base.msh ..\..\input\base.den tilenull.den 1650.00 1950.00 5480.00 5640.00 100.000 200.000
 
gzfor3d tilenull.msh grav.dat tilenull.den
 
DMXdelreg grav.dat - gzfor3d.grv grav.obs -.25  1
 
:skipForwardModel
 
@if exist gzinv3d.mtx goto skipsen:
pfweight gz_weights.inp 2
gzsen3d gzsen3d.inp
 
:skipsen
 
@if exist gzinv3d.rho goto RestartInversion:
gzinv3d gzinv3d.inp
goto :FinishInversion
 
:RestartInversion
 
gzinv3d gzinv3d.restart
 
:FinishInversion
 
dmxerror grav.obs gzinv3d.pre error.dat mesh
DMXinsert mesh gzinv3d.den ..\mesh ..\gzinv3d.den 5 9 7 9 1 4 1 1
 
 
cd ..
