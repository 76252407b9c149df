rem Coord Boundaries: 1700.00000 1950.00000 5440.00000 5520.00000
rem Cell Boundaries: 5 10 5 7
 
cd tile0202
 
 
rem run coarse forward model and calculate residual
 
@if exist mag.obs goto skipForwardModel:
 
DMXextract ..\mesh ..\refined.sus maginv3d.mod  4 9 4 7 1 4 ..\mag.obs
 
copy ..\..\input\base.msh tilenull.msh
DMXnullvol ..\..\input\base.msh ..\..\input\base.sus tilenull.sus 1650.00 1950.00 5400.00 5560.00 100.000 200.000
 
magfor3d tilenull.msh mag.dat tilenull.sus
 
DMXdelreg mag.dat - magfor3d.mag mag.obs  12.5  2
 
:skipForwardModel
 
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
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 5 9 5 6 1 4 1 1
 
 
cd ..
