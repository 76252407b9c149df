rem Coord Boundaries: 1700.00000 1950.00000 5440.00000 5520.00000
rem Cell Boundaries: 5 10 5 7
 
cd tile0202
 
 
rem extract bounds file
 
QVextract ..\mesh ..\limits.bnd limits.bnd 4 9 4 7 1 7 -Bounds
 
 
rem run coarse forward model and calculate residual
 
 
QVextract ..\mesh ..\refined.sus qvinv3d_tile.sus  4 9 4 7 1 7
 
copy ..\..\input\base.msh tilenull.msh
QVnullvol ..\..\input\base.msh ..\..\input\base.sus tilenull.sus 1650.00 1950.00 5400.00 5560.00 -75.000 200.000
 
qvpre3d "..\..\QVinv3D_Tx.mtx|..\..\QVinv3D_Ty.mtx" tilenull.sus mag_null.obs mag.obs MASK=0
 
 
@if not exist QVinv3D_Tx.mtx goto doMTX:
@if not exist QVinv3D_Ty.mtx goto doMTX:
goto skipsen:
 
:doMTX
tasklist | findstr " QVsen3D_RPCServer.exe" || START "" "QVsen3D_RPCServer.exe"
qvsen3d_cluster_controller "%~dp0tile0202"
 
:skipsen
 
@if exist qvinv3d.kap goto RestartInversion:
qvinv3d qvinv3d.inp NOFAST
goto :FinishInversion
 
:RestartInversion
 
qvinv3d qvinv3d.restart
 
:FinishInversion
 
QVerror mag.obs qvinv3d.pre error.dat mesh
QVinsert mesh qvinv3d.sus ..\mesh ..\qvinv3d.sus 5 9 5 6 1 4
 
 
cd ..
