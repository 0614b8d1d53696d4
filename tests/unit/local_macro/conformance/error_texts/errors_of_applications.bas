' The descriptions of the errors around properties, the clipboard, printers and pictures.
'> 321 Invalid file format
'> 322 Can't create necessary temporary file
'> 325 Invalid format in resource file
'> 380 Invalid property value
'> 381 Invalid property array index
'> 382 Set not supported at runtime
'> 383 Set not supported (read-only property)
'> 385 Need property array index
'> 387 Set not permitted
'> 393 Get not supported at runtime
'> 394 Get not supported (write-only property)
'> 422 Property not found
'> 423 Property or method not found
'> 460 Invalid clipboard format
'> 461 Method or data member not found
'> 463 Class not registered on local machine
'> 481 Invalid picture
'> 482 Printer error
'> 735 Can't save file to TEMP
'> 744 Search text not found
'> 746 Replacements too long
Sub main()
    For Each number In Array(321, 322, 325, 380, 381, 382, 383, 385, 387, 393, 394, 422, 423, 460, 461, 463, 481, 482, _
        735, 744, 746)
        Debug.Print number & " " & Error(number)
    Next
End Sub
