' The descriptions of the errors around objects and libraries.
'> 48 Error in loading DLL
'> 49 Bad DLL calling convention
'> 424 Object required
'> 429 ActiveX component can't create object
'> 430 Class does not support Automation or does not support expected interface
'> 432 File name or class name not found during Automation operation
'> 438 Object doesn't support this property or method
'> 440 Automation error
'> 445 Object doesn't support this action
'> 446 Object doesn't support named arguments
'> 448 Named argument not found
'> 449 Argument not optional
'> 450 Wrong number of arguments or invalid property assignment
'> 451 Property let procedure not defined and property get procedure did not return an object
'> 453 Specified DLL function not found
'> 457 This key is already associated with an element of this collection
'> 458 Variable uses an Automation type not supported in Visual Basic
'> 462 The remote server machine does not exist or is unavailable
Sub main()
    For Each number In Array(48, 49, 424, 429, 430, 432, 438, 440, 445, 446, 448, 449, 450, 451, 453, 457, 458, 462)
        Debug.Print number & " " & Error(number)
    Next
End Sub
