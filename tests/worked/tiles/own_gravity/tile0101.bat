rem Coord Boundaries: 1600.00000 1700.00000 5360.00000 5440.00000
rem Cell Boundaries: 3 5 3 5
 
cd tile0101
 
 
rem extract initial model
 
QVextract ..\mesh ..\start.den start.den 3 5 3 5 1 4
 
 
rem extract reference model
 
QVextract ..\mesh ..\known.den mag3d_ref.sus 3 5 3 5 1 4 -Ref ..\rocks.lkp
 
 
rem extract bounds file
 
QVextract ..\mesh ..\limits.bnd mag3d_bounds.sus 3 5 3 5 1 4 -Bounds ..\rocks.lkp
 
 
rem run coarse forward model and calculate residual
 
 
QVextract ..\mesh ..\refined.den qvinv3d_tile.den  3 5 3 5 1 4
 
copy ..\..\input\base.msh tilenull.msh
QVnullvol ..\..\input\base.msh ..\..\input\base.den tilenull.den 1600.00 1750.00 5360.00 5480.00 100.000 200.000
 
qvpre3d ..\..\qvinv3d.mtx tilenull.den grav_null.obs grav.obs MASK=0
 
 
@if exist qvinv3d.mtx goto skipsen:
tasklist | findstr " QVsen3D_RPCServer.exe" || START "" "QVsen3D_RPCServer.exe"
qvsen3d_cluster_controller "%~dp0tile0101"
 
:skipsen
 
@if exist qvinv3d.rho goto RestartInversion:
qvinv3d qvinv3d.inp NOFAST
goto :FinishInversion
 
:RestartInversion
 
qvinv3d qvinv3d.restart
 
:FinishInversion
 
QVerror grav.obs qvinv3d.pre error.dat mesh
QVinsert mesh qvinv3d.den ..\mesh ..\qvinv3d.den 3 4 3 4 1 4 1 1
 
 
cd ..
