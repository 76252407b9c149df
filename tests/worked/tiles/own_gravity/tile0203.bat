rem Coord Boundaries: 1700.00000 1950.00000 5520.00000 5640.00000
rem Cell Boundaries: 5 10 7 10
 
cd tile0203
 
 
rem extract initial model
 
QVextract ..\mesh ..\start.den start.den 4 9 6 9 1 4
 
 
rem extract reference model
 
QVextract ..\mesh ..\known.den mag3d_ref.sus 4 9 6 9 1 4 -Ref ..\rocks.lkp
 
 
rem extract bounds file
 
QVextract ..\mesh ..\limits.bnd mag3d_bounds.sus 4 9 6 9 1 4 -Bounds ..\rocks.lkp
 
 
rem run coarse forward model and calculate residual
 
 
QVextract ..\mesh ..\refined.den qvinv3d_tile.den  4 9 6 9 1 4
 
copy ..\..\input\base.msh tilenull.msh
QVnullvol ..\..\input\base.msh ..\..\input\base.den tilenull.den 1650.00 1950.00 5480.00 5640.00 100.000 200.000
 
qvpre3d ..\..\qvinv3d.mtx tilenull.den grav_null.obs grav.obs MASK=0
 
 
@if exist qvinv3d.mtx goto skipsen:
tasklist | findstr " QVsen3D_RPCServer.exe" || START "" "QVsen3D_RPCServer.exe"
qvsen3d_cluster_controller "%~dp0tile0203"
 
:skipsen
 
@if exist qvinv3d.rho goto RestartInversion:
qvinv3d qvinv3d.inp NOFAST
goto :FinishInversion
 
:RestartInversion
 
qvinv3d qvinv3d.restart
 
:FinishInversion
 
QVerror grav.obs qvinv3d.pre error.dat mesh
QVinsert mesh qvinv3d.den ..\mesh ..\qvinv3d.den 5 9 7 9 1 4 1 1
 
 
cd ..
